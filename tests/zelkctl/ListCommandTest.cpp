// SPDX-License-Identifier: MIT
#include "ZelkctlTest.h"
#include "support/KnownFolders.h"

#include <nlohmann/json.hpp>

namespace {

/// An installation with everything that a listing must handle.
class ListCommandTest : public ZelkctlTest
{
protected:
    void SetUp() override
    {
        for (const char *stock : {"SD40/a.eng", "SD40/b.wag", "SD40/c.ENG", "SD40/notes.txt",
                                  "GP38 Old/x.wag", "sd9/Long.Name.eng", "Empty/readme"})
            write("msts/TRAINS/TRAINSET/" + std::string(stock), "");
        for (const char *consist : {"Freight", "long GP9 train", support::kForeignZuege})
            write("msts/TRAINS/CONSISTS/" + std::string(consist) + ".con", "");
        write("msts/TRAINS/CONSISTS/gp38.CON", "");
        write("msts/TRAINS/CONSISTS/notes.txt", "");
        route("Coast", "Tr_RouteFile ( Name ( \"Coast Line (2)\" ) )");
        route("Bay (old)", "Tr_RouteFile ( RouteID ( x ) )");
        route("Old.Backup", "Tr_RouteFile ( Name ( Never ) )");
        write("msts/ROUTES/Hill/readme", "");
    }
    void route(const std::string &folder, const std::string &text) const
    {
        write("msts/ROUTES/" + folder + "/" + folder + ".trk", text);
    }
    std::string msts() const { return m_folder.At("msts"); }
};

TEST_F(ListCommandTest, ListsWhatIsInstalled)
{
    struct Row
    {
        const char *name;
        std::vector<std::string> arguments;
        const char *out;
    };
    const Row rows[] = {
        {"stock",
         {"list", "stock"},
         "Wagon\tGP38 Old\tx\nEngine\tSD40\ta\nWagon\tSD40\tb\nWagon\tSD40\tc\n"
         "Engine\tsd9\tLong.Name\n"},
        {"stock of some folders",
         {"list", "stock", "--filter", "SD4*"},
         "Engine\tSD40\ta\nWagon\tSD40\tb\nWagon\tSD40\tc\n"},
        {"stock, no file names filtered", {"list", "stock", "--filter", "a.eng"}, ""},
        {"consists", {"list", "consists"}, "Freight\ngp38\nlong GP9 train\nZ\u00fcge\n"},
        {"some consists, options first",
         {"--filter", "gp", "list", "consists"},
         "gp38\nlong GP9 train\n"},
        {"routes", {"list", "routes"}, "Bay (old)\nCoast(Coast Line (2))\nHill\n"},
        {"some routes", {"list", "--filter=*ll", "routes"}, "Hill\n"},
        {"stock as JSON",
         {"--json", "list", "stock", "--filter", "*9"},
         "[\n{\"type\":\"Engine\",\"folder\":\"sd9\",\"shape\":\"Long.Name\"}\n]\n"},
        {"consists as JSON",
         {"list", "consists", "--json", "--filter=*e"},
         "[\n{\"name\":\"Z\u00fcge\"}\n]\n"},
        {"routes as JSON",
         {"list", "routes", "--json"},
         "[\n{\"folder\":\"Bay (old)\",\"name\":\"\"},\n"
         "{\"folder\":\"Coast\",\"name\":\"Coast Line (2)\"},\n"
         "{\"folder\":\"Hill\",\"name\":\"\"}\n]\n"},
        {"nothing as JSON", {"list", "--json", "stock", "--filter", "none"}, "[]\n"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        std::vector<std::string> before = row.arguments, after = row.arguments;
        before.insert(before.begin(), {"--msts", msts()});
        after.push_back("--msts=" + msts());
        EXPECT_EQ(run(before), (Outcome{0, row.out, ""}));
        EXPECT_EQ(run(after), (Outcome{0, row.out, ""}));
        EXPECT_EQ(nlohmann::json::accept(row.out), row.out[0] == '[');
    }
}

TEST_F(ListCommandTest, UsesTheGivenOrChosenOrRegisteredFolder)
{
    const Outcome none{2, "", "zelkctl: no Train Simulator folder: use --msts DIR\n"};
    const auto list = [](const char *name) { return Outcome{0, std::string(name) + "\n", ""}; };
    for (const char *place : {"named", "set", "registered"})
        write(place + ("/Trains/Consists/" + std::string(place)) + ".con", "");
    const std::string base = m_folder.At("") + "/";
    support::KnownFolders known(m_folder.Path());
    EXPECT_EQ(run({"list", "consists"}), none);

    known.Register(base + "registered");
    EXPECT_EQ(run({"list", "consists"}), list("registered"));
    known.Set("MSTSDir", base + "set");
    EXPECT_EQ(run({"list", "consists"}), list("set"));
    EXPECT_EQ(run({"list", "consists", "--msts", base + "named"}), list("named"));
    EXPECT_EQ(run({"list", "consists", "--msts", base + "NAMED/"}), list("named"));
    EXPECT_EQ(run({"list", "consists", "--msts", " $msts "}), list("registered"));
}

TEST_F(ListCommandTest, ReportsAMissingFolder)
{
    EXPECT_EQ(run({"list", "stock", "--msts", ""}),
              (Outcome{2, "", "zelkctl: --msts: no folder given\n"}));
    EXPECT_EQ(run({"list", "stock", "--msts", "nowhere"}),
              (Outcome{2, "", "zelkctl: nowhere: error 76: Path not found\n"}));
    EXPECT_EQ(run({"list", "stock", "--msts", m_folder.Path()}), (Outcome{0, "", ""}))
        << "a folder without Train Simulator content has nothing to list";
}

} // namespace
