// SPDX-License-Identifier: MIT
#include "SmallInstallation.h"
#include "host/RuntimeError.h"
#include "validation/TSValidation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace {

using Call = std::function<std::int16_t(TSValidation &, const SmallInstallation &)>;

constexpr auto kGood = TSValidation::IsValid;
constexpr auto kSuspect = TSValidation::IsSuspect;
constexpr auto kMissing = TSValidation::IsMissing;
constexpr auto kCorrupt = TSValidation::IsCorrupt;
constexpr auto kReference = TSValidation::HasMissingReference;

struct Seen
{
    std::int16_t verdict = kGood;
    int error = 0;
    std::vector<std::string> report;  ///< Errors, translated
    std::vector<std::string> events;  ///< ErrorRaised, as result keys
    std::vector<std::string> verbose; ///< the texts of level 1 and 2
};

Seen observe(const Changes &changes, const Call &call, bool verbose)
{
    SmallInstallation place(changes);
    TSValidation validation(place.Location(), place.Files(), 1);
    validation.SetVerboseMessages(verbose);
    Seen seen;
    validation.ErrorRaised = [&](const auto &dependent, const auto &file, std::int16_t code) {
        seen.events.push_back(std::to_string(code) + '|' + file + '|' + dependent);
    };
    validation.MessageRaised = [&](const std::string &message, std::int16_t level) {
        EXPECT_EQ(level == 1, level != 0 && message.ends_with(" is OK")) << message;
        if (level != 0)
            seen.verbose.push_back(place.Neutral(message));
    };
    try {
        seen.verdict = call(validation, place);
    } catch (const host::RuntimeError &error) {
        seen.error = error.Number();
        EXPECT_NE(place.Neutral(error.Detail()).find("<M>/"), std::string::npos) << error.what();
    }
    EXPECT_EQ(seen.events, validation.Errors());
    for (const std::string &key : validation.Errors())
        seen.report.push_back(place.Neutral(TSValidation::TranslateError(key)));
    return seen;
}

/// Returns a line with "A/", "R/" and "C/" replaced by the installation's folders.
std::string spelledOut(std::string line)
{
    static const std::pair<const char *, const char *> kFolders[] = {
        {" A/", " <M>/Trains/Trainset/A/"},
        {" R/", " <M>/Routes/R/"},
        {" C/", " <M>/Trains/Consists/"}};
    for (const auto &[mark, folder] : kFolders)
        for (auto at = line.find(mark); at != line.npos; at = line.find(mark))
            line.replace(at, 3, folder);
    return line;
}

/// Tests one rule: the changes in the installation, the check, its verdict and the whole report. A
/// check that ends with an error has no verdict.
void rule(const char *name, const Changes &changes, const Call &call, std::int16_t verdict,
          std::vector<std::string> report = {}, int error = 0)
{
    SCOPED_TRACE(name);
    std::transform(report.begin(), report.end(), report.begin(), spelledOut);
    const Seen seen = observe(changes, call, false);
    EXPECT_EQ(seen.report, report);
    EXPECT_EQ(seen.error, error);
    EXPECT_EQ(seen.verdict, verdict);
    EXPECT_EQ(seen.verbose, std::vector<std::string>());
    Seen verbose = observe(changes, call, true);
    std::erase_if(verbose.verbose, [](const auto &line) { return line.ends_with(" is OK"); });
    EXPECT_EQ(verbose.report, report);
    EXPECT_EQ(verbose.verbose, report);
}

const std::string kA = "Trains/Trainset/A/";

Call stock(const char *file)
{
    return [file](TSValidation &v, const auto &place) { return v.CheckStock(place.At(kA + file)); };
}

std::pair<std::string, std::optional<std::string>> inA(const char *file, const char *text)
{
    return {kA + file, text ? std::optional<std::string>(text) : std::nullopt};
}

TEST(ChecksTest, WagonRules)
{
    const Call wagon = stock("a.wag");
    rule("nothing wrong", {}, wagon, kGood);
    rule("ignores an engine section in a wagon",
         {inA("a.wag", "Wagon ( a WagonShape ( a.s ) Sound ( a.sms ) ) Engine ( z )")}, wagon,
         kGood);
    rule("missing", {inA("a.wag", nullptr)}, wagon, kMissing, {"ERROR: A/a.wag is MISSING"});
    rule("no section", {inA("a.wag", "Waggon ( a WagonShape ( a.s ) Sound ( a.sms ) )")}, wagon,
         kCorrupt, {"ERROR: A/a.wag appears CORRUPT"});
    rule("no shape: shape and descriptor are missing", {inA("a.s", nullptr), inA("a.sd", nullptr)},
         wagon, kReference,
         {"ERROR: A/a.wag references missing file A/a.s",
          "ERROR: A/a.wag references missing file A/a.sd"});
    rule("no descriptor", {inA("a.sd", nullptr)}, wagon, kReference,
         {"ERROR: A/a.wag references missing file A/a.sd"});
    rule("an absent entry counts as empty; entries are case-sensitive",
         {inA("a.wag", "Wagon ( a wagonshape ( a.s ) Sound ( a.sms ) )")}, wagon, kReference,
         {"ERROR: A/a.wag references missing file A/",
          "ERROR: A/a.wag references missing file A/d"});
    rule("a folder is not a file", {inA("a.sd", nullptr), inA("a.sd/x", "")}, wagon, kReference,
         {"ERROR: A/a.wag references missing file A/a.sd"});
    rule("thumbnail",
         {inA("a.wag", "Wagon ( a WagonShape ( a.s ) Thumbnail ( t.ace ) Sound ( a.sms ) )"),
          inA("T.ACE", "")},
         wagon, kGood);
    rule("the named thumbnail is missing",
         {inA("a.wag", "Wagon ( a WagonShape ( a.s ) Thumbnail ( t.ace ) Sound ( a.sms ) )")},
         wagon, kReference, {"ERROR: A/a.wag references missing file A/t.ace"});
}

TEST(ChecksTest, SoundRules)
{
    const Call wagon = stock("a.wag");
    const auto wagonWith = [](const std::string &sound) {
        return Changes{{kA + "a.wag", "Wagon ( a WagonShape ( a.s ) " + sound + " )"}};
    };
    const auto sound = [](TSValidation &v, const auto &place) {
        return v.CheckSound(place.At(kA + "Sound/a.sms"));
    };
    for (const char *none : {"", "Sound ( )", "Sound ( \"\" )", "Sound ( \" \t\" )"})
        rule("an absent or empty entry names no file", wagonWith(none), wagon, kGood);
    rule("missing", wagonWith("Sound ( b.sms )"), wagon, kReference,
         {"ERROR: A/a.wag references missing file A/Sound/b.sms"});
    rule("missing below a folder", wagonWith("Sound ( \"b//c.sms\" )"), wagon, kReference,
         {"ERROR: A/a.wag references missing file A/Sound/b/c.sms"});
    rule("the sound path is normalised", wagonWith("Sound ( \"  .//a.\tsms \" )"), wagon, kGood);
    rule("no section: the sound is reported, the wagon is suspect",
         {inA("Sound/a.sms", "Tr_Sound ( )")}, wagon, kSuspect,
         {"ERROR: A/Sound/a.sms appears CORRUPT"});
    rule("a later suspect verdict replaces a worse one",
         {inA("a.s", nullptr), inA("Sound/a.sms", "Tr_Sound ( )")}, wagon, kSuspect,
         {"ERROR: A/a.wag references missing file A/a.s", "ERROR: A/Sound/a.sms appears CORRUPT"});
    rule("all missing files, at any depth; File ends its branch",
         {inA("Sound/a.sms", "Tr_SMS ( G ( S ( File ( x.wav File ( never.wav ) ) ) "
                             "File ( a.wav ) ) File ( y.wav ) file ( never.wav ) )")},
         sound, kSuspect,
         {"ERROR: A/Sound/a.sms references missing file A/Sound/x.wav",
          "ERROR: A/Sound/a.sms references missing file A/Sound/y.wav",
          "ERROR: A/Sound/a.sms is SUSPECT due to problems with dependent files"});
    rule("File without a value", {inA("Sound/a.sms", "tr_sms ( File ( ) )")}, sound, kSuspect,
         {"ERROR: A/Sound/a.sms references missing file A/Sound/",
          "ERROR: A/Sound/a.sms is SUSPECT due to problems with dependent files"});
    rule("checked alone, missing", {inA("Sound/a.sms", nullptr)}, sound, kMissing,
         {"ERROR: A/Sound/a.sms is MISSING"});
    rule("checked alone, nothing wrong", {}, sound, kGood);
}

TEST(ChecksTest, EngineRules)
{
    const Call engine = stock("e.eng");
    const auto engineWith = [](const std::string &section) {
        return Changes{{kA + "e.eng", "Wagon ( e WagonShape ( a.s ) Sound ( a.sms ) ) " + section}};
    };
    rule("nothing wrong", {}, engine, kGood);
    rule("uses the second section, whatever its name",
         engineWith("Motor ( e Wagon ( e ) CabView ( e.cvf ) Sound ( e.sms ) )"), engine, kGood);
    rule("no second section", engineWith(""), engine, kSuspect,
         {"ERROR: Engine section referenced by A/e.eng is MISSING"});
    rule("extension in any letter case",
         {inA("e.eng", nullptr), inA("e.ENG", "Wagon ( e WagonShape ( a.s ) Sound ( a.sms ) )")},
         stock("e.ENG"), kSuspect, {"ERROR: Engine section referenced by A/e.ENG is MISSING"});
    rule("names differ in letter case",
         engineWith("Engine ( E Wagon ( E ) CabView ( e.cvf ) Sound ( e.sms ) )"), engine, kCorrupt,
         {"ERROR: Engine and wagon names referenced by A/e.eng appears CORRUPT"});
    rule("the engine's entry names another wagon",
         engineWith("Engine ( e Wagon ( f ) CabView ( e.cvf ) Sound ( e.sms ) )"), engine, kCorrupt,
         {"ERROR: Engine and wagon names referenced by A/e.eng appears CORRUPT"});
    rule("the engine has a different name",
         engineWith("Engine ( f Wagon ( e ) CabView ( e.cvf ) Sound ( e.sms ) )"), engine, kCorrupt,
         {"ERROR: Engine and wagon names referenced by A/e.eng appears CORRUPT"});
    rule("neither cab view nor sound named: the last decides",
         engineWith("Engine ( e Wagon ( e ) )"), engine, kMissing,
         {"ERROR: Cabview section referenced by A/e.eng is MISSING",
          "ERROR: Sound section referenced by A/e.eng is MISSING"});
    rule("cab view and sound missing; the engine's sound path is used literally",
         engineWith(R"(Engine ( e Wagon ( e ) CabView ( x.cvf ) Sound ( " e.sms" ) ))"), engine,
         kReference,
         {"ERROR: A/e.eng references missing file A/Cabview/x.cvf",
          "ERROR: A/e.eng references missing file A/Sound/ e.sms"});
    for (const char *none : {"Sound ( )", "Sound ( \" \" )"})
        rule("an empty sound entry names no file",
             engineWith("Engine ( e Wagon ( e ) CabView ( e.cvf ) " + std::string(none) + " )"),
             engine, kGood);
    rule("an empty cab view entry is a missing file",
         engineWith("Engine ( e Wagon ( e ) CabView ( ) Sound ( e.sms ) )"), engine, kReference,
         {"ERROR: A/e.eng references missing file A/Cabview/"});
    rule("damaged sound", {inA("Sound/e.sms", "")}, engine, kSuspect,
         {"ERROR: A/Sound/e.sms appears CORRUPT"});
    rule("wagon and engine share a sound: reported twice",
         {inA("e.eng", "Wagon ( e WagonShape ( a.s ) Sound ( e.sms ) ) "
                       "Engine ( e Wagon ( e ) CabView ( e.cvf ) Sound ( e.sms ) )"),
          inA("Sound/e.sms", "")},
         engine, kSuspect,
         {"ERROR: A/Sound/e.sms appears CORRUPT", "ERROR: A/Sound/e.sms appears CORRUPT"});
}

TEST(ChecksTest, CabViewRules)
{
    const Call engine = stock("e.eng");
    const auto cab = [](TSValidation &v, const auto &place) {
        return v.CheckCabView(place.At(kA + "Cabview/e.cvf"));
    };
    rule("nothing wrong", {}, cab, kGood);
    rule("missing", {inA("Cabview/e.cvf", nullptr)}, cab, kMissing,
         {"ERROR: A/Cabview/e.cvf is MISSING"});
    rule("no section", {inA("Cabview/e.cvf", "Tr_CabView ( )")}, cab, kCorrupt,
         {"ERROR: A/Cabview/e.cvf appears CORRUPT"});
    rule("no section makes the engine suspect", {inA("Cabview/e.cvf", "Tr_CabView ( )")}, engine,
         kSuspect, {"ERROR: A/Cabview/e.cvf appears CORRUPT"});
    rule("controls that the simulator draws itself need no picture",
         {inA("Cabview/e.cvf", "Tr_CabViewFile ( CabViewControls ( 2 Digital ( Type ( x ) ) "
                               "Dial ( Graphic ( dial.ace ) ) ) )")},
         cab, kGood);
    rule("views and controls, an empty name among them",
         {inA("Cabview/left.ace", nullptr), inA("Cabview/dial.ace", nullptr),
          inA("Cabview/e.cvf",
              "Tr_CabViewFile ( CabViewFile ( front.ace ) CabViewFile ( left.ace ) "
              "CabViewControls ( 2 Dial ( Graphic ( dial.ace ) ) Lever ( Graphic ( ) ) ) )")},
         cab, kReference,
         {"ERROR: A/Cabview/e.cvf references missing file A/Cabview/left.ace",
          "ERROR: A/Cabview/e.cvf references missing file A/Cabview/dial.ace",
          "ERROR: A/Cabview/e.cvf references missing file A/Cabview/"});
    rule("a missing picture makes the engine suspect", {inA("Cabview/dial.ace", nullptr)}, engine,
         kSuspect, {"ERROR: A/Cabview/e.cvf references missing file A/Cabview/dial.ace"});
    rule("no controls", {inA("Cabview/e.cvf", "Tr_CabViewFile ( CabViewFile ( front.ace ) )")}, cab,
         kGood);
}

TEST(ChecksTest, StockShapeRules)
{
    const auto shape = [](TSValidation &v, const auto &place) {
        return v.CheckShape(place.At(kA + "a.s"));
    };
    const auto images = [](const std::string &text) {
        return Changes{{kA + "a.s", "shape ( " + text + " )"}};
    };
    rule("textures in its own folder; ignores the broken descriptor", {}, shape, kGood);
    rule("engines also make it rolling stock", {inA("a.wag", nullptr), inA("A.Eng", "")}, shape,
         kGood);
    rule("missing", {inA("a.s", nullptr)}, shape, kMissing, {"ERROR: A/a.s is MISSING"});
    rule("compressed", {inA("a.s", "SIMISA@F\x10\x01")}, shape, TSValidation::IsCompressed,
         {"ERROR: A/a.s is COMPRESSED"});
    rule("a texture is missing", {inA("b.ace", nullptr)}, shape, kReference,
         {"ERROR: A/a.s references missing file A/b.ace"});
    rule("declares too many: reported, but not in the verdict; other entries are not images",
         images("images ( 3 image ( a.ace ) Image ( x.ace ) image ( b.ace ) )"), shape, kGood,
         {"ERROR: Image count referenced by A/a.s is SUSPECT due to problems with dependent "
          "files"});
    rule("none declared, none present", images("images ( 0 )"), shape, kGood);
    rule("declares too few", images("images ( 1 image ( x.ace ) image ( b.ace ) )"), shape, kGood,
         {}, 9);
    rule("declares no number", images("images ( two image ( a.ace ) )"), shape, kGood, {}, 13);
    rule("uses the first number", images("images ( all 1 image ( a.ace ) )"), shape, kGood);
    rule("declares nothing", images("images ( image ( a.ace ) )"), shape, kGood, {}, 9);
    rule("declares a negative number", images("images ( -1 )"), shape, kGood, {}, 9);
    rule("declares beyond 16 bits", images("images ( 32768 )"), shape, kGood, {}, 6);
    rule("an image without a name", images("images ( 1 image ( ) )"), shape, kGood, {}, 9);
    rule("no images entry", images("Images ( 0 )"), shape, kGood, {}, 91);
}

TEST(ChecksTest, RouteShapeRules)
{
    const auto shape = [](TSValidation &v, const auto &place) {
        return v.CheckShape(place.At("Routes/R/Shapes/h.s"));
    };
    const auto setting = [](const std::string &value) {
        return Changes{
            {"Routes/R/Shapes/h.sd", "shape ( h.s ESD_Alternative_Texture ( " + value + " ) )"}};
    };
    const auto lines = [](const std::vector<const char *> &folders) {
        std::vector<std::string> report;
        for (const char *folder : folders)
            for (const char *image : {"h.ace", "h2.ace"})
                report.push_back(std::string("ERROR: R/Shapes/h.s references missing file "
                                             "R/Shapes/../Textures/")
                                     .append(folder)
                                     .append(image));
        return report;
    };
    Changes seasons = setting("252");
    seasons.emplace_back("Routes/R/Shapes/h.s",
                         "shape ( images ( 2 image ( h.ace ) image ( h2.ace ) ) )");
    Changes snowAndNight = seasons, broken = seasons, unknown = seasons, bare = seasons;
    snowAndNight[0] = setting("257")[0];
    broken[0] = setting("256")[0];
    unknown[0] = setting("253")[0];
    bare[0].second = std::nullopt;
    const std::vector<std::string> base = {lines({""})[1]};
    const auto withBase = [&](std::vector<std::string> report) {
        report.insert(report.begin(), base[0]);
        return report;
    };
    rule("setting without further folders", {}, shape, kGood);
    rule("a setting without alternatives", unknown, shape, kReference, base);
    rule("the smallest valid setting", setting("-32768"), shape, kGood);
    rule("beyond 16 bits", setting("-32769"), shape, kGood, {}, 6);
    rule("all seasons, folder by folder", seasons, shape, kReference,
         withBase(lines(
             {"Autumn/", "AutumnSnow/", "Spring/", "SpringSnow/", "Winter/", "WinterSnow/"})));
    rule("snow, then night", snowAndNight, shape, kReference, withBase(lines({"Snow/", "Night/"})));
    rule("snow", setting("1"), shape, kReference, {lines({"Snow/"})[0]});
    rule("the broken setting, after the base textures", broken, shape, kGood, base, 13);
    rule("no descriptor, after the base textures", bare, shape, kGood, base, 13);
    rule("no setting", {{"Routes/R/Shapes/h.sd", "shape ( h.s )"}}, shape, kGood, {}, 91);
    rule("a setting that is not a number", setting("many"), shape, kGood, {}, 13);
    rule("an empty descriptor", {{"Routes/R/Shapes/h.sd", ""}}, shape, kGood, {}, 9);
}

TEST(ChecksTest, ConsistRules)
{
    const auto consist = [](TSValidation &v, const auto &place) {
        return v.CheckConsist(place.At("Trains/Consists/c.con"));
    };
    const auto train = [](const std::string &vehicles) {
        return Changes{{"Trains/Consists/c.con", "Train ( TrainCfg ( c " + vehicles + " ) )"}};
    };
    const std::string wagon = "Wagon ( WagonData ( a A ) )";
    const std::vector<std::string> wagonLines = {"INFO: C/c.con references file A/a.wag",
                                                 "INFO: A/a.wag references file A/a.s"};
    const auto corrupt = [](const std::string &text) {
        return "ERROR: " + text + " referenced by C/c.con appears CORRUPT";
    };
    const std::string notSet = "Error 91 - Object variable or With block variable not set";
    rule("nothing wrong", {}, consist, kGood,
         {"INFO: C/c.con references file A/e.eng", "INFO: A/e.eng references file A/a.s",
          wagonLines[0], wagonLines[1]});
    rule("missing", {{"Trains/Consists/c.con", {}}}, consist, kMissing,
         {"ERROR: C/c.con is MISSING"});
    rule("continues after a missing vehicle and reports it each time",
         train("Engine ( EngineData ( a A ) ) Wagon ( WagonData ( x Y ) ) "
               "Wagon ( WagonData ( x Y ) ) " +
               wagon),
         consist, kSuspect,
         {"ERROR: C/c.con references missing file A/a.eng",
          "ERROR: C/c.con references missing file <M>/Trains/Trainset/Y/x.wag",
          "ERROR: C/c.con references missing file <M>/Trains/Trainset/Y/x.wag", wagonLines[0],
          wagonLines[1]});
    rule("missing shape", {{kA + "a.s", {}}, train(wagon)[0]}, consist, kSuspect,
         {wagonLines[0], "ERROR: A/a.wag references missing file A/a.s"});
    rule("a vehicle without its section ends the check",
         {inA("e.eng", "Waggon ( e )"), train("Engine ( EngineData ( e A ) ) " + wagon)[0]},
         consist, kSuspect, {"INFO: C/c.con references file A/e.eng", corrupt(notSet)});
    rule("no data block", train(wagon + " Engine ( WagonData ( e A ) )"), consist, kSuspect,
         {wagonLines[0], wagonLines[1], corrupt(notSet)});
    rule("no folder", train("Wagon ( WagonData ( a ) )"), consist, kSuspect,
         {corrupt("Error 9 - Subscript out of range")});
    rule("no Train section", {{"Trains/Consists/c.con", "Trane ( TrainCfg ( ) )"}}, consist,
         kSuspect, {corrupt(notSet)});
    rule("no TrainCfg", {{"Trains/Consists/c.con", "Train ( traincfg ( ) )"}}, consist, kSuspect,
         {corrupt(notSet)});
    rule("no vehicles", train(""), consist, kGood);
}

TEST(ChecksTest, StockInConsistsRules)
{
    const auto use = [](const char *file) -> Call {
        return [file](TSValidation &v, const auto &place) {
            return v.CheckStockInConsists(place.At(kA + file));
        };
    };
    const auto train = [](const char *name, const std::string &vehicles) {
        return Changes::value_type{"Trains/Consists/" + std::string(name),
                                   "Train ( TrainCfg ( x " + vehicles + " ) )"};
    };
    const std::string engine = "Engine ( EngineData ( e A ) )",
                      wagon = "Wagon ( WagonData ( a A ) )";
    const auto line = [](const std::string &consist) {
        return "INFO: C/" + consist + " references file A/a.wag";
    };
    const std::string none = "ERROR: A/a.wag referenced by all consists is MISSING";
    rule("in one consist, reported once although used twice",
         {train("c.con", engine + wagon + wagon)}, use("a.wag"), kGood, {line("c.con")});
    rule("after the first consist, only if it is the first vehicle",
         {train("b.con", engine + wagon), train("d.con", wagon + wagon)}, use("a.wag"), kGood,
         {line("b.con"), line("d.con")});
    rule("in no consist", {train("c.con", engine)}, use("a.wag"), kMissing, {none});
    const std::string boxcar = "Train ( TrainCfg ( x Wagon ( WagonData ( boxcar A ) ) ) )";
    std::string wide = "\xFF\xFE";
    for (const char c : boxcar)
        wide.append({c, '\0'});
    for (const std::string &text : {boxcar, wide})
        rule("a name of several letters, in each encoding",
             {inA("boxcar.wag", "Wagon ( boxcar )"), {"Trains/Consists/c.con", text}},
             use("boxcar.wag"), kGood, {"INFO: C/c.con references file A/boxcar.wag"});
    rule("compares letter case",
         {train("c.con", "Wagon ( WagonData ( A A ) ) Wagon ( WagonData ( a a ) )")}, use("a.wag"),
         kMissing, {none});
    rule("an engine entry may name a wagon", {train("c.con", "Engine ( EngineData ( a A ) )")},
         use("a.wag"), kGood, {line("c.con")});
    rule("unreadable consists and entries without data use nothing",
         {train("c.con", "Wagon ( UiD ( 1 ) )" + wagon),
          {"Trains/Consists/b.con", "Train"},
          {"Trains/Consists/a.con", "SIMISA@F\x10\x01"},
          {"Trains/Consists/z.txt", wagon}},
         use("a.wag"), kGood, {line("c.con")});
    rule("the train is in the first block, whatever its name",
         {{"Trains/Consists/b.con", "X ( Y ( " + wagon + " ) )"},
          {"Trains/Consists/c.con", "Empty ( ) Train ( TrainCfg ( " + wagon + " ) )"}},
         use("a.wag"), kGood, {line("b.con")});
    rule("names with joined or escaped strings",
         {train("c.con", R"(Wagon ( WagonData ( "" + "a" "\A" ) ))")}, use("a.wag"), kGood,
         {line("c.con")});
}

TEST(ChecksTest, UseInRoutesRules)
{
    const auto consist = [](const char *name, const char *route) -> Call {
        return [=](TSValidation &v, const auto &) { return v.CheckConsistUseInRoute(route, name); };
    };
    const auto inRoute = [](const char *file, const char *route) -> Call {
        return [=](TSValidation &v, const auto &place) {
            return v.CheckStockUseInRoute(place.At(kA + file), route);
        };
    };
    const std::string service = "Routes/R/Services/", activity = "Routes/R/Activities/";
    const auto objects = [&](const std::string &text) {
        return Changes{{activity + "x.act",
                        "tr_activity ( Tr_Activity_File ( ActivityObjects ( " + text + " ) ) )"}};
    };
    const std::string config = "Train_Config ( TrainCfg ( x Wagon ( WagonData ( a A ) ) "
                               "Engine ( EngineData ( a A ) ) Wagon ( WagonData ( a B ) ) ) )";
    const std::string run = " references file C/c.con", uses = " references file A/a.wag";
    rule("two services", {{service + "b.srv", "Service_Definition ( Train_Config ( \"c\" ) )"}},
         consist("c", "r"), kGood,
         {"INFO: <M>/Routes/r/Services/b.srv" + run, "INFO: <M>/Routes/r/Services/s.srv" + run});
    rule("compares letter case", {}, consist("C", "R"), kGood);
    rule("services without the expected blocks",
         {{service + "s.srv", "Service ( Train_Config ( c ) )"},
          {service + "t.srv", "Service_Definition ( train_config ( c ) )"},
          {service + "u.txt", "Service_Definition ( Train_Config ( c ) )"}},
         consist("c", "R"), kGood);
    rule("no such route, consist", {}, consist("c", "S"), kMissing, {"ERROR: Route S is MISSING"});
    rule("no such route, stock", {}, inRoute("a.wag", "S"), kMissing,
         {"ERROR: Route S is MISSING"});
    rule("a file is not a route", {{"Routes/S", ""}}, consist("c", "S"), kMissing,
         {"ERROR: Route S is MISSING"});
    rule("each vehicle of a loose consist",
         objects("ActivityObject ( ObjectType ( WagonsList ) " + config +
                 " ) ActivityObject ( "
                 "ObjectType ( WagonsList ) ) Other ( ObjectType ( WagonsList ) " +
                 config + " )"),
         inRoute("a.wag", "R"), kGood,
         std::vector<std::string>(4, "INFO: R/Activities/x.act" + uses));
    rule("ignores other kinds of objects and the player's train",
         {objects("ActivityObject ( ObjectType ( wagonslist ) " + config + " )")[0],
          {activity + "y.act", "Tr_Activity ( Tr_Activity_File ( Player ( " + config + " ) ) )"}},
         inRoute("a.wag", "R"), kGood);
    rule("an item of the same name in another folder", {}, inRoute("e.eng", "R"), kGood);
}

} // namespace
