// SPDX-License-Identifier: MIT
#include "samples/Script.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace {

using samples::Arguments;
using samples::Script;

/// A script whose verb `say` records numbers.
class ScriptTest : public testing::Test
{
protected:
    ScriptTest()
    {
        script.Set("level", 1.0F);
        script.Add("say", [this](Arguments &a) {
            while (a.More())
                said += std::to_string(static_cast<int>(a.Number())) + ' ';
        });
    }

    std::string Run(const std::string &text)
    {
        said.clear();
        script.RunText("test", text);
        return said;
    }

    std::string FaultOf(const std::string &text)
    {
        try {
            script.RunText("test", text);
        } catch (const std::logic_error &fault) {
            return fault.what();
        }
        return "none";
    }

    Script script;
    std::string said;
};

TEST_F(ScriptTest, ExpressionsKnowPrecedenceListsAndLevels)
{
    EXPECT_EQ(Run("say 1+2*3 (1+2)*3 -2+5 7%4 9-4-3 8/4/2"), "7 9 3 3 2 1 ");
    EXPECT_EQ(Run("say 2<3&!(3<=2) 1=2?5:6 10|20|30 10|20"), "1 6 20 20 ");
    EXPECT_EQ(Run("let a [1,2]+[3]\nsay a size(a+a) mirrored([1,2, 3,4])"), "1 2 3 6 -3 4 -1 2 ");
    EXPECT_EQ(Run("say length(\"two words\"+7) red(#102030*0.5) \"a\"=\"a\""), "10 8 1 ");
}

TEST_F(ScriptTest, LoopsRepeatTheIndentedLines)
{
    EXPECT_EQ(Run("for i 0 i<3 1\n  each s 1 -1: say s*i\n  say 9\n"), "0 0 9 1 -1 9 2 -2 9 ");
    EXPECT_EQ(Run("each x,y 1,2 [3,4, 5,6]: say x*y"), "2 12 30 ");
    EXPECT_EQ(Run("each x 1 2 3\n  only x>1\n  say x"), "2 3 ");
    EXPECT_EQ(Run("if 0: say 1\nelse\n  if 1: say 2\n  else: say 3"), "2 ");
}

TEST_F(ScriptTest, DefinitionsHaveTheirOwnVariables)
{
    EXPECT_EQ(Run("let x 1\ndef f x\n  let y x+1\n  say x y\n  set z 7\nf 5\nsay x z"), "5 6 1 7 ");
    EXPECT_NE(FaultOf("say y").find("no variable y"), std::string::npos);
}

TEST_F(ScriptTest, TablesSetTheColumnsOfTheRow)
{
    script.Set("kind", "long");
    EXPECT_EQ(Run("table kind size count\n  short 1 2\n  long  3 4\nsay size count"), "3 4 ");
}

TEST_F(ScriptTest, FaultsNameTheInnermostLine)
{
    EXPECT_EQ(FaultOf("// comment\ndef f a\n  shout a\nf 1"), "test:3: no verb shout");
    EXPECT_EQ(FaultOf("say 1)"), "test:1: unexpected )");
    EXPECT_EQ(FaultOf("say sinus(1)"), "test:1: no function sinus");
    EXPECT_EQ(FaultOf("def g a: say a\ng"), "test:2: too few words");
    EXPECT_EQ(FaultOf("def h a: say a\nh 1 2"), "test:2: too many words");
    EXPECT_EQ(FaultOf("let a").substr(0, 7), "test:1:");
    EXPECT_EQ(FaultOf("say \"text\"").substr(0, 7), "test:1:");
}

} // namespace
