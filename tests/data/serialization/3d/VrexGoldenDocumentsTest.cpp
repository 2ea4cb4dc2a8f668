#include <cstdlib>
#include <fstream>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "support/GermanLocale.h"
#include "support/GoldenSystems.h"
#include "support/JsonSamples.h"

namespace {

using nsJsonSamples::valueOf;

TEST(VrexGoldenDocuments, AreWrittenByteForByte) {
    for (const auto& [name, makeText] : GoldenSystems::documents()) {
        SCOPED_TRACE(name);
        const std::string text = makeText();
        if (std::getenv("VREX_UPDATE_GOLDEN") != nullptr) {
            std::ofstream(GoldenSystems::path(name), std::ios::binary) << text;
        }
        EXPECT_EQ(text, GoldenSystems::text(name));
    }
}

TEST(VrexGoldenDocuments, AreTheSameWithADecimalCommaInTheLocale) {
    const GermanLocale german;
    ASSERT_TRUE(GermanLocale::isSet());
    for (const auto& [name, makeText] : GoldenSystems::documents()) {
        EXPECT_EQ(makeText(), GoldenSystems::text(name)) << name;
    }
}

/// The texts of `type` in an array of a document.
std::set<std::string> typesIn(const std::string& document, const char* array) {
    const LumoJson json = LumoJson::parse(GoldenSystems::text(document));
    std::set<std::string> types;
    for (const LumoJson& object : json[array]) {
        types.insert(valueOf<std::string>(object["type"]));
    }
    return types;
}

template <class Enum>
std::set<std::string> allNames() {
    std::set<std::string> names;
    for (const auto& row : VrexEnumTable<Enum>::ROWS) {
        names.insert(row.name);
    }
    names.erase("Unknown");
    return names;
}

TEST(VrexGoldenDocuments, HaveEveryKind) {
    EXPECT_EQ(typesIn("geometries", "objects"), allNames<VrexGeometry3DType>());
    EXPECT_EQ(typesIn("constraints", "constraints"), allNames<VrexConstraint3DType>());
    EXPECT_EQ(typesIn("equations", "equations"),
              (std::set<std::string>{"ExpressionEquation", "LinearEquation"}));
}

TEST(VrexGoldenDocuments, ComeBackFromTheirTextAsTheyWere) {
    for (const auto& [name, makeText] : GoldenSystems::documents()) {
        SCOPED_TRACE(name);
        VrexSystem3DSerializer serializer({});
        serializer.addExtendedInformationTag("maxId");
        serializer.addExtendedInformationTag("author");
        const std::string text = GoldenSystems::text(name);
        EXPECT_EQ(serializer.jsonToStream(LumoJson::parse(text)), text);
    }
}

} // namespace
