#include <gtest/gtest.h>

#include <set>

#include "columns/SpeciesCodes.h"
#include "columns/Vocabulary.h"

namespace corvalin {
namespace {

class SpeciesCodesTest : public ::testing::Test {
 protected:
  void TearDown() override { ResetSpeciesCodes(); }
  // What SetSpeciesList does for a known variant.
  static void UseVariant(const std::string& variant) { SpeciesCodes() = *SpeciesRowOf(variant); }
  static bool Valid(std::string text, const std::string& variant) { return IsValidSpecies(text, variant); }
  // A code as MapBcSpecies leaves it.
  static std::string MappedBc(std::string code) {
    MapBcSpecies(code);
    return code;
  }
};

TEST_F(SpeciesCodesTest, EveryVariantHasARowOfFifteenSlots) {
  for (const std::string& variant : VariantNames()) ASSERT_NE(SpeciesRowOf(variant), nullptr) << variant;
  EXPECT_EQ(SpeciesRowOf("XX"), nullptr);
  EXPECT_EQ(SpeciesRowOf("bc"), nullptr);
}

TEST_F(SpeciesCodesTest, RowsAreLiteralWithFillersAndOddCodes) {
  EXPECT_EQ(*SpeciesRowOf("AK"), (SpeciesList{"WS", "RC", "SF", "MH", "WH", "YC", "LP", "SS", "AF", "HD", "--", "--",
                                              "--", "--", "--"}));
  EXPECT_EQ(*SpeciesRowOf("BC"), (SpeciesList{"PW", "LW", "FD", "BG", "HW", "CW", "PL", "SE", "BL", "PY", "EP",
                                              "AT", "CT", "OC", "OH"}));
  EXPECT_EQ(*SpeciesRowOf("BH"), (SpeciesList{"CW", "OS", "DF", "--", "OH", "AS", "LP", "WS", "--", "PP", "J", "--",
                                              "--", "--", "--"}));
  EXPECT_EQ(*SpeciesRowOf("WS"), (SpeciesList{"OC", "SP", "DF", "WF", "GS", "IC", "TO", "JP", "RF", "PP", "TO",
                                              "--", "--", "--", "--"}));
  EXPECT_EQ(*SpeciesRowOf("KT"), (SpeciesList{"WP", "L", "DF", "GF", "WH", "C", "LP", "S", "AF", "PP", "OTH", "--",
                                              "--", "--", "--"}));
  EXPECT_EQ(*SpeciesRowOf("TT"), (SpeciesList{"WB", "LM", "DF", "--", "--", "AS", "LP", "ES", "AF", "--", "--", "--",
                                              "--", "--", "--"}));
  EXPECT_EQ((*SpeciesRowOf("NC"))[4], "M");
  EXPECT_EQ((*SpeciesRowOf("EM"))[1], "L");
  EXPECT_EQ((*SpeciesRowOf("EM"))[5], "C");
  EXPECT_EQ((*SpeciesRowOf("EM"))[7], "S");
}

TEST_F(SpeciesCodesTest, BcMappingHasOneHundredSixUniqueKeysInFifteenGroups) {
  const auto& keys = BcSpeciesKeys();
  EXPECT_EQ(keys.size(), 106u);
  std::set<std::string> names, targets;
  for (const auto& [key, target] : keys) {
    names.insert(key);
    targets.insert(target);
  }
  EXPECT_EQ(names.size(), 106u);
  EXPECT_EQ(targets.size(), 15u);
}

TEST_F(SpeciesCodesTest, MapBcSpeciesRewritesToTargetOrEmpty) {
  EXPECT_EQ(MappedBc("yc"), "OC");
  EXPECT_EQ(MappedBc("F "), "FD");
  EXPECT_EQ(MappedBc("L"), "LW");
  EXPECT_EQ(MappedBc("ac"), "CT");
  EXPECT_EQ(MappedBc("WS"), "OH");
  EXPECT_EQ(MappedBc("DF"), "");
}

TEST_F(SpeciesCodesTest, BcLowerCaseFdIsValidAndRewrittenToFd) {
  std::string text = "fd";
  EXPECT_TRUE(IsValidSpecies(text, "BC"));
  EXPECT_EQ(text, "FD");
}

TEST_F(SpeciesCodesTest, DfIsNoBcKeyButValidUnderNi) {
  std::string text = "DF";
  EXPECT_FALSE(IsValidSpecies(text, "BC"));
  EXPECT_EQ(text, "DF");
  UseVariant("NI");
  EXPECT_TRUE(Valid("DF", "NI"));
}

TEST_F(SpeciesCodesTest, LowerCasePpWithBlanksFailsUnderTtAndPassesUnderUt) {
  UseVariant("TT");
  std::string text = " pp ";
  EXPECT_FALSE(IsValidSpecies(text, "TT"));
  EXPECT_EQ(text, " pp ");
  UseVariant("UT");
  EXPECT_TRUE(IsValidSpecies(text, "UT"));
  EXPECT_EQ(text, " pp ");
}

TEST_F(SpeciesCodesTest, FillerPassesUnderUsVariantsButNotUnderBc) {
  UseVariant("AK");
  EXPECT_TRUE(Valid("--", "AK"));
  UseVariant("BC");
  EXPECT_FALSE(Valid("--", "BC"));
}

TEST_F(SpeciesCodesTest, OthIsValidUnderKtOnly) {
  UseVariant("KT");
  EXPECT_TRUE(Valid("OTH", "KT"));
  UseVariant("EM");
  EXPECT_FALSE(Valid("OTH", "EM"));
}

TEST_F(SpeciesCodesTest, VariantNamesBmAndBcAreKeysOfTheOcGroup) {
  std::string text = "BM";
  EXPECT_TRUE(IsValidSpecies(text, "BC"));
  EXPECT_EQ(text, "OC");
  text = "bc";
  EXPECT_TRUE(IsValidSpecies(text, "BC"));
  EXPECT_EQ(text, "OC");
}

TEST_F(SpeciesCodesTest, TrimmingKeepsKeysWithTrailingBlankOutOfReach) {
  EXPECT_FALSE(Valid("F", "BC"));
  EXPECT_FALSE(Valid("F ", "BC"));
  EXPECT_TRUE(Valid("L", "BC"));
  EXPECT_TRUE(Valid(" FD ", "BC"));
}

TEST_F(SpeciesCodesTest, EmptyCellIsInvalidOnceAVariantIsSet) {
  EXPECT_FALSE(Valid("", "BC"));
  UseVariant("NI");
  EXPECT_FALSE(Valid("", "NI"));
  EXPECT_FALSE(Valid("   ", "NI"));
}

TEST_F(SpeciesCodesTest, UsVariantTestsTheListAsItStandsWhateverTheName) {
  UseVariant("SO");
  // An empty variant text (no selection) is no "BC": the list of SO decides.
  EXPECT_TRUE(Valid("ic", ""));
  EXPECT_FALSE(Valid("GS", ""));
}

}  // namespace
}  // namespace corvalin
