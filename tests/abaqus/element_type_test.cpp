/// Geometry type and node count from the text of an element type.
#include <cstddef>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "abaqus/imported_deck.h"

namespace kvocaeio::test {
namespace {

struct TypeCase {
    const char* type;
    int geometryType;
    int nodesPerElem;
};

std::ostream& operator<<(std::ostream& out, const TypeCase& c) {
    return out << "'" << c.type << "'";
}

class ElementType : public testing::TestWithParam<TypeCase> {};

TEST_P(ElementType, GivesGeometryTypeAndNodeCount) {
    ImportedDeck deck("*ELEMENT, TYPE=" + std::string(GetParam().type) + "\n");
    CKVOAbaqusReader::ElemSecData section;
    ASSERT_TRUE(deck.reader.GetElemSecBegin());
    ASSERT_TRUE(deck.reader.GetElemSecNext(&section));
    EXPECT_EQ(section.geometryType, GetParam().geometryType);
    EXPECT_EQ(section.nodesPerElem, GetParam().nodesPerElem);
    EXPECT_EQ(section.elemNum, 0);
    EXPECT_THAT(deck.printed,
                testing::HasSubstr("  geometry type = " + std::to_string(GetParam().geometryType) +
                                   "\n  node num per element = " +
                                   std::to_string(GetParam().nodesPerElem) + "\n"));
}

constexpr int kUnknown = 0;
constexpr int kShell = 1;
constexpr int kSolid = 2;

INSTANTIATE_TEST_SUITE_P(
    Solids, ElementType,
    testing::Values(
        TypeCase{"C3D4", kSolid, 4}, TypeCase{"C3D5", kSolid, 5}, TypeCase{"C3D6", kSolid, 6},
        TypeCase{"C3D8", kSolid, 8}, TypeCase{"C3D10", kSolid, 10}, TypeCase{"C3D15", kSolid, 15},
        TypeCase{"C3D20", kSolid, 20}, TypeCase{"C3D8R", kSolid, 8}, TypeCase{"C3D10M", kSolid, 10},
        TypeCase{"C3D20RH", kSolid, 20}, TypeCase{"DC3D8", kSolid, 8},
        TypeCase{"DC3D20", kSolid, 20}, TypeCase{"DCC3D8", kSolid, 8},
        TypeCase{"AC3D8R", kSolid, 8}, TypeCase{"c3d8r", kSolid, 8}, TypeCase{"C3D08", kSolid, 8},
        TypeCase{"C3D+8", kSolid, 8}, TypeCase{"C3D 8", kSolid, 8}, TypeCase{"C3D\t8", kSolid, 8},
        TypeCase{" C3D8 ", kSolid, 8}, TypeCase{"C3D8 C3D4", kSolid, 8},
        TypeCase{"C3D8S3", kSolid, 8}, TypeCase{"S4C3D6", kSolid, 6}));

INSTANTIATE_TEST_SUITE_P(
    SolidsOfOddWidth, ElementType,
    testing::Values(TypeCase{"C3D27", kUnknown, 27}, TypeCase{"C3D7", kUnknown, 7},
                    TypeCase{"C3D1", kUnknown, 1}, TypeCase{"C3D2.5", kUnknown, 2},
                    TypeCase{"C3D0", kUnknown, 0}, TypeCase{"C3D", kUnknown, 0},
                    TypeCase{"C3DX", kUnknown, 0}, TypeCase{"C3DS3", kUnknown, 0},
                    TypeCase{"C3D S4", kUnknown, 0}, TypeCase{"C3DC3D8", kUnknown, 0},
                    TypeCase{"C3D-8", kUnknown, 0}, TypeCase{"C3D- 8", kUnknown, 0},
                    TypeCase{"C3D10000", kUnknown, 10000}, TypeCase{"C3D10001", kUnknown, 0},
                    TypeCase{"C3D99999", kUnknown, 0}, TypeCase{"C3D2147483648", kUnknown, 0},
                    TypeCase{"C3D99999999999999999999", kUnknown, 0},
                    TypeCase{"C3D-99999999999999999999", kUnknown, 0}));

INSTANTIATE_TEST_SUITE_P(Shells, ElementType,
                         testing::Values(TypeCase{"S3", kShell, 3}, TypeCase{"S3R", kShell, 3},
                                         TypeCase{"S4", kShell, 4}, TypeCase{"S4R", kShell, 4},
                                         TypeCase{"S4R5", kShell, 4}, TypeCase{"DS3", kShell, 3},
                                         TypeCase{"DS4", kShell, 4}, TypeCase{"CPS3", kShell, 3},
                                         TypeCase{"CPS4", kShell, 4}, TypeCase{"CPS4R", kShell, 4},
                                         TypeCase{"R3D3", kShell, 3}, TypeCase{"R3D4", kShell, 3},
                                         TypeCase{"MASS4", kShell, 4}, TypeCase{"S34", kShell, 3},
                                         TypeCase{"S4S3", kShell, 3}, TypeCase{"S4R3", kShell, 3},
                                         TypeCase{"s4r", kShell, 4}, TypeCase{" S3", kShell, 3}));

INSTANTIATE_TEST_SUITE_P(
    Others, ElementType,
    testing::Values(TypeCase{"", kUnknown, 0}, TypeCase{" ", kUnknown, 0},
                    TypeCase{"S8R", kUnknown, 0}, TypeCase{"B31", kUnknown, 0},
                    TypeCase{"T3D2", kUnknown, 0}, TypeCase{"M3D4", kUnknown, 0},
                    TypeCase{"STRI3", kUnknown, 0}, TypeCase{"STRI65", kUnknown, 0},
                    TypeCase{"SC8R", kUnknown, 0}, TypeCase{"CAX4", kUnknown, 0},
                    TypeCase{"CPE4R", kUnknown, 0}, TypeCase{"C2D8", kUnknown, 0},
                    TypeCase{"C 3D8", kUnknown, 0}, TypeCase{"S 3", kUnknown, 0}));

}  // namespace
}  // namespace kvocaeio::test
