#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "exchange/ImportedRobot.h"
#include "exchange/Told.h"

namespace {

using enum VrexUrdfSeverity;

TEST(VrexXmlCharacters, CharactersThatNoXmlHoldsAreRefused) {
    for (const char* const character : {"&#0;", "&#x0;", "&#31;", "&#xD800;", "&#xFFFE;", "&#x110000;",
                                        "&#99999999999999999999;", "&#;", "&#x;", "&#65", "\x01", "\x1F"}) {
        SCOPED_TRACE(character);
        const std::string text =
            robotOf(std::string("<link name='a'/>\n<link name='b").append(character) + "c'/>\n");
        EXPECT_THAT(toldOf(readText(text, false)),
                    testing::ElementsAre(Told{Error, 3, "XML", "The text is no XML: forbidden character."}));
    }
    std::string cut = robotOf("<link name='a'/>\n");
    cut.push_back('\0');
    EXPECT_FALSE(readText(cut, false).system.has_value());
}

TEST(VrexXmlCharacters, CharactersByTheirNumberAreRead) {
    const auto robot = importText("<?note &#0;?>" +
                                  robotOf("<!-- &#0; --><link name='a&#9;&#x7E;&#233;&#x1F980;&amp;'/>\n"));
    EXPECT_EQ(robot.geometry<VrexRigidSet3D>("")->label(), "a\t~\u00e9\U0001F980&");
}

} // namespace
