#include "model/stone_choice.h"

#include <gtest/gtest.h>

#include "model/stone_tables.h"

namespace kirameki {
namespace {

TEST(StoneTables, MandarinTracksVoraneAndNamesMatchTheLists) {
    StoneChoice choice;
    ASSERT_TRUE(SelectStone(choice, 7));
    EXPECT_DOUBLE_EQ(choice.refractiveIndex, 1.89);
    EXPECT_EQ(Stones()[7].coefficient, 0.035);
    EXPECT_EQ(choice.model, 2);
    EXPECT_EQ(choice.colour, 6);
    EXPECT_EQ(CutNames()[19].english, "reg. ８ hedron");  // full-width digit kept
    EXPECT_EQ(Colours()[8].absorption[0], 0.03);          // Violet absorbs red only
    EXPECT_EQ(PolygonColours()[1][0], 1.0);               // the default position is Red
}

TEST(StoneChoice, SelectionRulesKeepWhatTheyMust) {
    StoneChoice choice;
    SelectStone(choice, 1);
    EXPECT_EQ(choice.model, 6);
    EXPECT_EQ(choice.colour, 3);
    EXPECT_DOUBLE_EQ(choice.refractiveIndex, 1.77);
    EXPECT_FALSE(SelectStone(choice, 8));
    EXPECT_FALSE(SelectStone(choice, -1));
    EXPECT_EQ(choice.stone, 1);
    EXPECT_FALSE(SelectCut(choice, 22));  // the separator line
    EXPECT_EQ(choice.model, 6);
    EXPECT_TRUE(SelectCut(choice, 23));
    EXPECT_EQ(choice.model, 23);
    EXPECT_EQ(choice.colour, 3);  // a cut keeps the stone's colour
}

TEST(RefractiveIndex, ReadBackClampsAndTheCheckRefusesOutsideTheRange) {
    EXPECT_EQ(ClampRefractiveIndex(0.5), 1.0);
    EXPECT_EQ(ClampRefractiveIndex(3.5), 3.0);
    EXPECT_EQ(ClampRefractiveIndex(3.00), 3.0);
    EXPECT_FALSE(RefractiveIndexInRange(0.99));
    EXPECT_FALSE(RefractiveIndexInRange(3.01));
    EXPECT_TRUE(RefractiveIndexInRange(1.00));
    EXPECT_TRUE(RefractiveIndexInRange(3.00));
    EXPECT_EQ(ParseRefractiveIndex(" 2.42 "), 2.42);
    EXPECT_EQ(ParseRefractiveIndex("+1.5"), 1.5);
    EXPECT_FALSE(ParseRefractiveIndex("2,42"));
    EXPECT_FALSE(ParseRefractiveIndex(""));
    EXPECT_FALSE(ParseRefractiveIndex("1e999"));
    EXPECT_FALSE(ParseRefractiveIndex("nan"));
}

}  // namespace
}  // namespace kirameki
