// SPDX-License-Identifier: MIT
#include "ZelkctlTest.h"

#include "content/HealthSettings.h"
#include "host/Settings.h"

namespace {

/// The settings are in a file of the test's own.
class KeptProfileTest : public ZelkctlTest
{
protected:
    void SetUp() override
    {
        // MSTS wants a descriptor; only Open Rails reads the load.
        write("msts/TRAINS/TRAINSET/A/w.wag",
              "\nWagon ( w WagonShape ( w.s ) ORTSFreightAnims ( F ( Shape ( gone.s ) ) ) )");
        write("msts/TRAINS/TRAINSET/A/w.s", "SIMISA@@@@@@@@@@JINX0s1t______\n\nshape ( )");
    }
    std::string rulesOf(std::vector<std::string> arguments) const
    {
        arguments.insert(arguments.begin(), {"health", "--format", "csv"});
        const std::string csv = run(arguments).out;
        std::string rules;
        for (std::size_t at = csv.find('\n'); at + 1 < csv.size(); at = csv.find('\n', at + 1))
            rules += csv.substr(at + 1, csv.find(',', at) - at - 1) + ' ';
        return rules;
    }
    std::string settings() const { return read("ZELK/ZELK.ini"); }
};

TEST_F(KeptProfileTest, CountsWithoutTheOptionAndIsNotChanged)
{
    const std::string folder = m_folder.At("msts");
    host::IniSettings store(m_folder.At("ZELK/ZELK.ini"));
    const std::string both = "missing-freight-animation missing-descriptor ";
    EXPECT_EQ(rulesOf({"--msts", folder}), both);
    content::KeepProfiles(store, folder, content::Profile::Msts);
    const std::string before = settings();
    for (const char *const spelling : {"msts", "MSTS/", "./msts"})
        EXPECT_EQ(rulesOf({"--msts", spelling}), "missing-descriptor ") << spelling;
    EXPECT_EQ(rulesOf({"--msts", folder, "--profile", "openrails"}), "missing-freight-animation ");
    EXPECT_EQ(rulesOf({"--msts", folder, "--profile", "both"}), both);
    EXPECT_EQ(settings(), before);
    content::KeepProfiles(store, folder, content::Profile::OpenRails);
    EXPECT_EQ(rulesOf({"--msts", folder}), "missing-freight-animation ");
}

} // namespace
