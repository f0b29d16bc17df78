// The variant lists of the stand record dialog.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "columns/Vocabulary.h"
#include "standlist/VariantTables.h"

namespace corvalin {
namespace {

TEST(VariantTables, FifteenVariantsInTheListOrder) {
  std::string joined;
  for (const std::string& name : VariantNames()) joined += name + " ";
  EXPECT_EQ(joined, "AK BC BH BM CI EC EM NC NI SO SW TT UT WS KT ");
}

TEST(VariantTables, EveryVariantHasFifteenSiteSpeciesRowsWithPlaceholders) {
  const auto ni = SiteSpeciesRows("NI");
  EXPECT_EQ(ni[0], "WP");
  EXPECT_EQ(ni[1], "L");
  EXPECT_EQ(ni[10], "MH");
  EXPECT_EQ(ni[11], "--");
  EXPECT_EQ(ni[14], "--");
  const auto kt = SiteSpeciesRows("KT");
  EXPECT_EQ(kt[10], "OTH");
  const auto bc = SiteSpeciesRows("BC");
  EXPECT_EQ(bc[14], "OH");
  EXPECT_EQ(SiteSpeciesRows("BH")[10], "J");
}

TEST(VariantTables, TheWsVariantRepeatsTanoak) {
  const auto ws = SiteSpeciesRows("WS");
  EXPECT_EQ(ws[6], "TO");
  EXPECT_EQ(ws[10], "TO");
}

TEST(VariantTables, AnUnknownVariantGivesFifteenEmptyRows) {
  for (const char* text : {"", "ni", "XX", "WN"}) {
    const auto rows = SiteSpeciesRows(text);
    for (const std::string& row : rows) EXPECT_EQ(row, "") << text;
  }
}

TEST(VariantTables, LocationRowsFollowTheVariantKey) {
  EXPECT_EQ(LocationRows("BC"), std::vector<std::string>{"106 : Southern Interior"});
  const auto ak = LocationRows("AK");
  ASSERT_EQ(ak.size(), 4u);
  EXPECT_EQ(ak[3], "701  : Non Forest Service");
  const auto ni = LocationRows("NI");
  ASSERT_EQ(ni.size(), 11u);
  EXPECT_EQ(ni[3], "106 : Coeur d'Alene NF");
  EXPECT_EQ(ni[4], "621 : Colville NF");
  const auto so = LocationRows("SO");
  ASSERT_EQ(so.size(), 7u);
  EXPECT_EQ(so[3], "505 : Klamath NF");
  EXPECT_EQ(so[6], "701 : Non Forest Service");
  EXPECT_EQ(LocationRows("SW").size(), 11u);
  EXPECT_EQ(LocationRows("NC").size(), 6u);
}

TEST(VariantTables, WsAndKtHaveNoLocationRowsAndTheWnRowsAreReachedOnlyByTheirKey) {
  EXPECT_TRUE(LocationRows("WS").empty());
  EXPECT_TRUE(LocationRows("KT").empty());
  EXPECT_TRUE(LocationRows("").empty());
  EXPECT_EQ(LocationRows("WN").size(), 6u);
}

TEST(VariantTables, FourGrowthTranslationCodes) {
  EXPECT_EQ(std::string(GrowthTranslationRows[0]), "0 : Measured directly/end of period");
  EXPECT_EQ(std::string(GrowthTranslationRows[3]), "3 : By subtraction/start of period");
}

}  // namespace
}  // namespace corvalin
