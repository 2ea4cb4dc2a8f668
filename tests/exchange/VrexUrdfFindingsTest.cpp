#include <algorithm>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/constraint/3d/VrexMate3D.h"
#include "exchange/ImportedRobot.h"
#include "exchange/Told.h"

namespace {

using enum VrexUrdfSeverity;

struct Doubt {
    const char* title;
    std::string text;
    Told error;         ///< Where reading is strict.
    const char* remedy; ///< Follows the message where it is not.
};

TEST(VrexUrdfFindings, DoubtfulContentIsAnErrorOrWorkedAround) {
    const Doubt doubts[] = {
        {"no limits",
         jointOf("revolute", ""),
         {Error, 3, "j", "joint \"j\" has no limits."},
         "It is taken without."},
        {"undeclared root",
         robotOf("<link name='b'/>\n<joint name='j' type='fixed'>" + ENDS + "</joint>\n"),
         {Error, 3, "a", "joint \"j\": the link \"a\" is not declared."},
         "It is taken as a link without shapes."},
        {"unknown tag",
         jointOf("continuous", "\n<spring/>"),
         {Error, 4, "spring", "joint \"j\": <spring> is not known."},
         "It is left out."},
        {"unknown tag of the robot",
         robotOf("<link name='a'/>\n<wheel/>\n"),
         {Error, 3, "wheel", "robot \"r\": <wheel> is not known."},
         "It is left out."},
        {"joint without counterpart",
         jointOf("curvilinear", "<origin xyz='1 0 0'/>"),
         {Error, 3, "j", "joint \"j\": the type \"curvilinear\" has no counterpart."},
         "Its child moves freely."},
        {"loop without counterpart",
         robotOf(TWO_LINKS + "<joint name='j' type='floating'>" + ENDS + "</joint>\n" +
                 "<loop name='l' type='belt'><predecessor link='a'/><successor link='b'/></loop>\n"),
         {Error, 4, "l", "loop \"l\": the type \"belt\" has no counterpart."},
         "The loop stays open."},
        {"two roots",
         robotOf("<link name='a'/>\n<link name='b'/>\n"),
         {Error, 3, "b", "link \"b\" hangs on no joint, and so does link \"a\"."},
         "Both are fixed where they are."},
        {"mimics what has no value",
         robotOf("<link name='a'/><link name='b'/><link name='c'/>\n"
                 "<joint name='j' type='planar'>" +
                 ENDS +
                 "</joint>\n"
                 "<joint name='k' type='continuous'><parent link='a'/><child link='c'/>\n"
                 "<mimic joint='j'/></joint>\n"),
         {Error, 5, "k", "joint \"k\" follows joint \"j\": joint \"j\" has no single value."},
         "Both move on their own."},
    };
    for (const Doubt& doubt : doubts) {
        SCOPED_TRACE(doubt.title);
        const auto strict = readText(doubt.text, true);
        EXPECT_FALSE(strict.system.has_value());
        EXPECT_THAT(toldOf(strict), testing::ElementsAre(doubt.error));
        const auto lenient = readText(doubt.text, false);
        EXPECT_TRUE(lenient.system.has_value());
        Told warning = doubt.error;
        warning.severity = Warning;
        warning.message.append(" ").append(doubt.remedy);
        EXPECT_THAT(toldOf(lenient), testing::ElementsAre(warning));
    }
}

struct Refusal {
    std::string text;
    Told error;
};

TEST(VrexUrdfFindings, WhatCannotBeReadIsRefusedInBothModes) {
    const std::string three = "<link name='a'/><link name='b'/><link name='c'/>\n";
    const auto hinge = [](const std::string& name, const std::string& parent, const std::string& child) {
        return "<joint name='" + name + "' type='continuous'><parent link='" + parent + "'/><child link='" +
               child + "'/></joint>\n";
    };
    const auto mimic = [&](const std::string& name, const std::string& child, const std::string& leader) {
        return "<joint name='" + name + "' type='continuous'><parent link='a'/><child link='" + child +
               "'/><mimic joint='" + leader + "'/></joint>\n";
    };
    const Refusal refusals[] = {
        {"<robot name='r'>\n<link name='a'>\n</robot>",
         {Error, 2, "XML", "The text is no XML: mismatched element."}},
        {"\n<model/>", {Error, 2, "robot", "The outermost element is not <robot>."}},
        {"", {Error, 0, "XML", "The text is no XML: empty document."}},
        {robotOf(""), {Error, 0, "robot", "There is no link."}},
        {robotOf("<link/>\n"), {Error, 2, "link", "robot \"r\": <link> needs the attribute \"name\"."}},
        {robotOf("<link name='a'/>\n<link name='a'/>\n"), {Error, 3, "a", "There is another link \"a\"."}},
        {robotOf(three + hinge("j", "a", "b") + hinge("j", "a", "c")),
         {Error, 4, "j", "There is another joint \"j\"."}},
        {robotOf(three + hinge("j", "a", "b") + hinge("k", "a", "c") + hinge("l", "b", "c")),
         {Error, 5, "l", "joint \"l\": its child \"c\" hangs on joint \"k\"."}},
        {robotOf(three + hinge("j", "b", "c") + hinge("k", "c", "b")),
         {Error, 2, "b", "link \"b\" hangs on a ring of joints."}},
        {jointOf("continuous", "\n<origin xyz='1 2'/>"),
         {Error, 4, "origin",
          "joint \"j\": the attribute \"xyz\" of <origin> needs three numbers: \"1 2\"."}},
        {jointOf("continuous", "\n<origin rpy='0 0 nan'/>"),
         {Error, 4, "origin",
          "joint \"j\": the attribute \"rpy\" of <origin> needs three numbers: \"0 0 nan\"."}},
        {jointOf("continuous", "\n<axis xyz='0 0 0'/>"),
         {Error, 4, "j", "joint \"j\": the axis has no length."}},
        {jointOf("continuous", "\n<axis xyz='1e200 0 1e200'/>"),
         {Error, 4, "axis",
          "joint \"j\": the attribute \"xyz\" of <axis> holds a number beyond 1e100: \"1e200 0 1e200\"."}},
        {jointOf("continuous", "\n<origin xyz='0 -1e308 0'/>"),
         {Error, 4, "origin",
          "joint \"j\": the attribute \"xyz\" of <origin> holds a number beyond 1e100: \"0 -1e308 0\"."}},
        {jointOf("continuous", "\n<axis/>\n<axis/>"),
         {Error, 5, "axis", "joint \"j\": <axis> stands here twice."}},
        {jointOf("revolute", "\n<limit lower='1' upper='-1'/>"),
         {Error, 4, "j", "joint \"j\": the lower limit is above the upper one."}},
        {jointOf("prismatic", "\n<limit lower='low' upper='1'/>"),
         {Error, 4, "limit", "joint \"j\": the attribute \"lower\" of <limit> is no number: \"low\"."}},
        {jointOf("continuous", "\n<mimic joint='j' multiplier='-1e101'/>"),
         {Error, 4, "mimic",
          "joint \"j\": the attribute \"multiplier\" of <mimic> holds a number beyond 1e100: \"-1e101\"."}},
        {jointOf("screw", ""), {Error, 3, "j", "joint \"j\": <screw_thread_pitch> is missing."}},
        {robotOf(TWO_LINKS + "<joint name='j' type='fixed'>\n<parent link='a'/></joint>\n"),
         {Error, 3, "j", "joint \"j\": <child> is missing."}},
        {robotOf("<link name='a'>\n<visual><geometry>\n<sphere radius='0'/></geometry></visual></link>\n"),
         {Error, 4, "sphere", "link \"a\": the attribute \"radius\" of <sphere> must be above 0."}},
        {robotOf("<link name='a'>\n<visual><geometry>\n<box size='1 -1 1'/></geometry></visual></link>\n"),
         {Error, 4, "box", "link \"a\": the sizes of <box> must be above 0."}},
        {jointOf("continuous", "\n<mimic joint='nobody'/>"),
         {Error, 4, "j", "joint \"j\" follows a joint \"nobody\", which is not declared."}},
        {robotOf(three + mimic("j", "b", "k") + mimic("k", "c", "j")),
         {Error, 3, "j", "joint \"j\" follows itself."}},
        {robotOf(three + mimic("j", "b", "k' offset='1e99") +
                 "<joint name='k' type='continuous'><parent link='b'/><child link='c'/></joint>\n" +
                 "<link name='d'/><joint name='m' type='continuous'><parent link='c'/><child link='d'/>\n"
                 "<mimic joint='j' multiplier='1e99'/></joint>"),
         {Error, 6, "m", "joint \"m\" follows by too large an offset."}},
        {robotOf("<link name='a'/>\n<link name='\xE9'/>\n"),
         {Error, 3, "UTF-8", "The text is not valid UTF-8."}},
        {robotOf(
             "<link name='a'>\n<visual><geometry>\n<sphere radius='1e200'/></geometry></visual></link>\n"),
         {Error, 4, "sphere",
          "link \"a\": the attribute \"radius\" of <sphere> holds a number beyond 1e100: \"1e200\"."}},
        {robotOf(TWO_LINKS + hinge("j", "a", "b") +
                 "<loop name='l' type='6d'><predecessor link='b'/><successor link='c'/></loop>\n"),
         {Error, 4, "l", "loop \"l\": there is no link \"c\"."}},
        {robotOf(TWO_LINKS + hinge("j", "a", "b") +
                 "<loop name='l' type='6d'><predecessor link='b'/><successor link='b'/></loop>\n"),
         {Error, 4, "l", "loop \"l\" joins a link with itself."}},
        {robotOf(TWO_LINKS + hinge("j", "a", "b") +
                 "<coupling name='c'><predecessor link='a'/><successor link='b'/><ratio "
                 "value='2'/></coupling>\n"),
         {Error, 4, "c", "coupling \"c\": no joint moves a link \"a\"."}},
    };
    for (const Refusal& refusal : refusals) {
        for (const bool isStrict : {true, false}) {
            SCOPED_TRACE(refusal.text);
            const auto result = readText(refusal.text, isStrict);
            EXPECT_FALSE(result.system.has_value());
            EXPECT_THAT(toldOf(result), testing::Contains(refusal.error));
        }
    }
}

TEST(VrexUrdfFindings, WhatHasNoCounterpartIsNoted) {
    const auto result = readText(robotOf("<link name='a'>\n"
                                         "<inertial/>\n"
                                         "<visual><geometry>\n<mesh filename='a.stl'/></geometry>\n"
                                         "<material name='red'/></visual></link>\n"
                                         "<transmission name='t'/>\n"),
                                 true);
    EXPECT_TRUE(result.system.has_value());
    EXPECT_THAT(toldOf(result),
                testing::ElementsAre(Told{Note, 3, "inertial", "link \"a\": <inertial> has no counterpart."},
                                     Told{Note, 5, "mesh", "link \"a\": <mesh> has no counterpart."},
                                     Told{Note, 6, "red", "link \"a\": <material> has no counterpart."},
                                     Told{Note, 7, "t", "robot \"r\": <transmission> has no counterpart."}));
}

TEST(VrexUrdfFindings, WhatAJointWithoutCounterpartHoldsIsToldOneByOne) {
    const std::string text =
        jointOf("curvilinear", "\n<limit lower='0' upper='1'/>\n<curves>\n<line/>\n"
                               "</curves>\n<axis xyz='0 0 1'/>\n<dynamics damping='1'/>");
    const Told notes[] = {{Note, 4, "limit", "joint \"j\": <limit> has no counterpart."},
                          {Note, 8, "axis", "joint \"j\": <axis> has no counterpart."},
                          {Note, 9, "dynamics", "joint \"j\": <dynamics> has no counterpart."}};
    EXPECT_THAT(
        toldOf(readText(text, true)),
        testing::ElementsAre(Told{Error, 3, "j", "joint \"j\": the type \"curvilinear\" has no counterpart."},
                             notes[0], Told{Error, 5, "curves", "joint \"j\": <curves> is not known."},
                             notes[1], notes[2]));
    EXPECT_THAT(toldOf(readText(text, false)),
                testing::ElementsAre(
                    Told{Warning, 3, "j",
                         "joint \"j\": the type \"curvilinear\" has no counterpart. Its child moves freely."},
                    notes[0],
                    Told{Warning, 5, "curves", "joint \"j\": <curves> is not known. It is left out."},
                    notes[1], notes[2]));
}

TEST(VrexUrdfFindings, WhatATypeHasNoUseForIsNoted) {
    const struct {
        const char* type;
        const char* inside;
        const char* tag;
    } rows[] = {
        {"fixed", "<axis xyz='0 0 1'/>", "axis"},
        {"floating", "<axis xyz='0 0 1'/>", "axis"},
        {"continuous", "<screw_thread_pitch value='1'/>", "screw_thread_pitch"},
        {"fixed", "<screw_thread_pitch value='1'/>", "screw_thread_pitch"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.type);
        const std::string message =
            std::string("joint \"j\": <").append(row.tag).append("> has no counterpart.");
        EXPECT_THAT(toldOf(readText(jointOf(row.type, row.inside), true)),
                    testing::ElementsAre(Told{Note, 3, row.tag, message}));
    }
    const std::string loop = "<loop name='l' type='6d'><predecessor link='a'/><successor link='b'/>\n"
                             "<axis xyz='0 0 1'/></loop>\n";
    EXPECT_THAT(toldOf(readText(jointOf("continuous", "").insert(16 + TWO_LINKS.size() + 1, loop), true)),
                testing::ElementsAre(Told{Note, 4, "axis", "loop \"l\": <axis> has no counterpart."}));
}

TEST(VrexUrdfFindings, TextBetweenTagsIsTold) {
    const auto result = readText(robotOf("<link name='a'> <!-- quiet -->\n lost </link>\n"), true);
    EXPECT_TRUE(result.system.has_value());
    EXPECT_THAT(toldOf(result), testing::ElementsAre(Told{
                                    Warning, 2, "a", "link \"a\": <link> holds text, which is left out."}));
}

TEST(VrexUrdfFindings, MacrosThatWereNotExpandedAreCalledSo) {
    const auto result =
        readText(robotOf("<link name='a'/>\n<xacro:macro name='arm'><link name='b'/></xacro:macro>\n"), true);
    EXPECT_THAT(
        toldOf(result),
        testing::ElementsAre(Told{
            Error, 3, "macro", "robot \"r\": <xacro:macro> is a macro, which xacro has to expand first."}));
}

TEST(VrexUrdfFindings, WhatALenientReadingWouldTakeIsMarked) {
    const auto isDoubtOf = [](const std::string& text) {
        return readText(text, true).findings.at(0).isDoubt;
    };
    EXPECT_TRUE(isDoubtOf(jointOf("revolute", "")));
    EXPECT_FALSE(isDoubtOf(jointOf("screw", "")));
    EXPECT_FALSE(readText(jointOf("revolute", ""), false).findings.at(0).isDoubt);
}

TEST(VrexUrdfFindings, AttributesThatAreNotReadAreTold) {
    const auto result =
        readText(jointOf("revolute", "\n<limit lower='0' upper='1' effort='3' jerk='4'/>"), true);
    EXPECT_TRUE(result.system.has_value());
    EXPECT_THAT(
        toldOf(result),
        testing::ElementsAre(
            Told{Note, 4, "effort", "joint \"j\": the attribute \"effort\" of <limit> has no counterpart."},
            Told{Warning, 4, "jerk",
                 "joint \"j\": the attribute \"jerk\" of <limit> is not known and left out."}));
}

TEST(VrexUrdfFindings, ALimitThatIsLeftOutIsZeroToTheLetterAndOpenElse) {
    const std::string text = jointOf("prismatic", "\n<limit upper='1'/>");
    const auto strict = readText(text, true);
    EXPECT_THAT(toldOf(strict),
                testing::ElementsAre(
                    Told{Warning, 4, "j", "joint \"j\": the lower limit is missing. It is taken as 0."}));
    const auto lenient = readText(text, false);
    EXPECT_THAT(toldOf(lenient),
                testing::ElementsAre(
                    Told{Warning, 4, "j", "joint \"j\": the lower limit is missing. It is taken as open."}));
    const auto limitsOf = [](const VrexUrdfImport& result) {
        return ImportedRobot(*result.system).constraint<VrexMate3D>("j")->getDimension(0).limits;
    };
    EXPECT_EQ(limitsOf(strict), VrexDimensionLimits(0.0, 1.0));
    EXPECT_EQ(limitsOf(lenient), VrexDimensionLimits(std::nullopt, 1.0));
}

TEST(VrexUrdfFindings, LimitsWhereTheFormatHasNoneAreTold) {
    EXPECT_THAT(toldOf(readText(jointOf("continuous", "\n<limit lower='0' upper='1'/>"), true)),
                testing::ElementsAre(Told{Warning, 4, "j",
                                          "joint \"j\": a joint of this type has no limits. They are left "
                                          "out."}));
}

TEST(VrexUrdfFindings, ASecondFollowingOfOneJointIsDoubtful) {
    std::string text = jointOf("continuous", "<mimic joint='k'/>");
    text.insert(
        text.find("</robot>"),
        "<link name='c'/><joint name='k' type='continuous'><parent link='a'/><child link='c'/></joint>\n"
        "<coupling name='gear'><predecessor link='c'/><successor link='b'/><ratio value='2'/></coupling>");
    EXPECT_THAT(toldOf(readText(text, false)),
                testing::ElementsAre(Told{
                    Warning, 5, "gear",
                    "coupling \"gear\": joint \"j\" follows another one by now. The coupling is left out."}));
    EXPECT_FALSE(readText(text, true).system.has_value());
}

TEST(VrexUrdfFindings, ACouplingOfLinksOnDifferentLinksIsDoubtful) {
    const std::string text = robotOf(
        "<link name='a'/><link name='b'/><link name='c'/>\n"
        "<joint name='j' type='continuous'><parent link='a'/><child link='b'/></joint>\n"
        "<joint name='k' type='continuous'><parent link='b'/><child link='c'/></joint>\n"
        "<coupling name='gear'><predecessor link='b'/><successor link='c'/><ratio value='2'/></coupling>\n");
    EXPECT_THAT(
        toldOf(readText(text, false)),
        testing::ElementsAre(Told{Warning, 5, "gear",
                                  "coupling \"gear\": its links hang on different links. Their joints "
                                  "are coupled."}));
    EXPECT_FALSE(readText(text, true).system.has_value());
}

TEST(VrexUrdfFindings, TextsOfAnyDepthAreRefused) {
    std::string deep = "<robot name='r'>";
    for (int i = 0; i < 100000; ++i) {
        deep += "<link name='a'>";
    }
    EXPECT_FALSE(readText(deep, false).system.has_value());
    EXPECT_FALSE(readText(jointOf("continuous", ""), false, std::string(100000, '[')).system.has_value());
}

/// Would take minutes, were each tag compared with all before it.
TEST(VrexUrdfFindings, RepeatedTagsTakeTimeInProportion) {
    constexpr std::size_t COUNT = 100000;
    std::string text = "<robot name='r'><link name='a'><visual>";
    for (const char* const tag : {"<glow/>", "<origin/>"}) {
        for (std::size_t i = 0; i < COUNT; ++i) {
            text += tag;
        }
    }
    const auto result = readText(text + "<geometry/></visual></link></robot>", false);
    EXPECT_EQ(result.findings.size(), COUNT + COUNT - 1);
}

TEST(VrexUrdfFindings, ATextIsOneElement) {
    const std::string robot = "<robot name='r'><link name='a'/></robot>";
    for (const std::string& text : {"stray\n" + robot, robot + "\n" + robot, robot + "\nstray"}) {
        SCOPED_TRACE(text);
        const auto result = readText(text, false);
        EXPECT_FALSE(result.system.has_value());
        EXPECT_EQ(result.findings.at(0).name, "XML");
    }
    EXPECT_TRUE(readText("<?xml version='1.0'?><!-- a --><!DOCTYPE robot>" + robot + "<!-- b -->\n", true)
                    .system.has_value());
}

} // namespace
