#include "standlist/VariantTables.h"

#include <cstddef>

namespace corvalin {

namespace {

struct SpeciesRowsOfVariant {
  const char* variant;
  std::array<const char*, kSiteSpeciesRows> rows;
};

// The site species a variant offers; "--" holds a place with no species.
const SpeciesRowsOfVariant kSiteSpecies[] = {
    {"AK", {"WS", "RC", "SF", "MH", "WH", "YC", "LP", "SS", "AF", "HD", "--", "--", "--", "--", "--"}},
    {"BC", {"PW", "LW", "FD", "BG", "HW", "CW", "PL", "SE", "BL", "PY", "EP", "AT", "CT", "OC", "OH"}},
    {"BH", {"CW", "OS", "DF", "--", "OH", "AS", "LP", "WS", "--", "PP", "J", "--", "--", "--", "--"}},
    {"BM", {"WP", "WL", "DF", "WF", "WH", "GF", "LP", "ES", "AF", "PP", "--", "--", "--", "--", "--"}},
    {"CI", {"WP", "WL", "DF", "GF", "WH", "RC", "LP", "ES", "AF", "PP", "--", "--", "--", "--", "--"}},
    {"EC", {"WP", "WL", "DF", "SF", "--", "GF", "LP", "ES", "AF", "PP", "--", "--", "--", "--", "--"}},
    {"EM", {"WB", "L", "DF", "GF", "WH", "C", "LP", "S", "AF", "PP", "MH", "--", "--", "--", "--"}},
    {"NC", {"OC", "SP", "DF", "WF", "M", "IC", "BO", "TO", "RF", "PP", "SF", "--", "--", "--", "--"}},
    {"NI", {"WP", "L", "DF", "GF", "WH", "C", "LP", "S", "AF", "PP", "MH", "--", "--", "--", "--"}},
    {"SO", {"WP", "SP", "DF", "WF", "MH", "IC", "LP", "ES", "RF", "PP", "--", "--", "--", "--", "--"}},
    {"SW", {"WP", "OS", "DF", "WF", "SF", "AS", "BS", "ES", "AF", "PP", "CB", "--", "--", "--", "--"}},
    {"TT", {"WB", "LM", "DF", "--", "--", "AS", "LP", "ES", "AF", "--", "--", "--", "--", "--", "--"}},
    {"UT", {"WB", "LM", "DF", "WF", "--", "AS", "LP", "ES", "AF", "PP", "--", "--", "--", "--", "--"}},
    {"WS", {"OC", "SP", "DF", "WF", "GS", "IC", "TO", "JP", "RF", "PP", "TO", "--", "--", "--", "--"}},
    {"KT", {"WP", "L", "DF", "GF", "WH", "C", "LP", "S", "AF", "PP", "OTH", "--", "--", "--", "--"}},
};

struct LocationRowsOfKey {
  const char* key;
  std::vector<const char*> rows;
};

// Location codes by key. No variant bears the key "WN", so its rows are out
// of reach; "WS" and "KT" have no key at all, and their users type the code.
const LocationRowsOfKey kLocations[] = {
    {"AK",
     {"1002 : Tongass--Chatham Area", "1003 : Tongass--Ketchikan Area", "1005 : Tongass--Sitkine Area",
      "701  : Non Forest Service"}},
    {"BC", {"106 : Southern Interior"}},
    {"BM", {"604 : Malheur NF", "607 : Ochoco NF", "614 : Umatilla NF", "616 : Wallowa Whitman NF"}},
    {"EC",
     {"603 : Gifford Pinchot NF", "606 : Mount Hood", "608 : Okanogan NF", "617 : Wenatchee NF",
      "699 : Non Forest Service"}},
    {"NC",
     {"505 : Klamath NF", "510 : Six Rivers NF", "514 : Shasta-Trinity NF's", "611 : Plumas NF",
      "705 : Non Forest Service", "800 : Non Forest Service"}},
    {"BH", {"203 : Black Hills NF", "207 : Nebraska"}},
    {"CI", {"402 : Boise NF", "406 : Challis NF", "412 : Payette NF", "413 : Salmon NF", "414 : Sawtooth NF"}},
    {"EM",
     {"102 : Beaverhead NF", "108 : Custer NF", "109 : Deerlodge NF", "111 : Gallatin NF", "112 : Helena NF",
      "115 : Lewis and Clark NF"}},
    {"NI",
     {"103 : Bitterroot NF", "104 : Idaho Panhandle NF's", "105 : Clearwater NF", "106 : Coeur d'Alene NF",
      "621 : Colville NF", "110 : Flathead NF", "113 : Kaniksu NF", "114 : Kootenai NF", "116 : Lolo NF",
      "117 : Nez Perce NF", "118 : St. Joe NF"}},
    {"SO",
     {"601 : Deschutes NF", "602 : Fremont NF", "620 : Winema NF", "505 : Klamath NF", "506 : Lassen NF",
      "509 : Modoc NF", "701 : Non Forest Service"}},
    {"TT", {"403 : Bridger NF", "405 : Caribou NF", "415 : Targhee NF", "416 : Teton NF"}},
    {"UT",
     {"401 : Ashley NF", "407 : Dixie NF", "408 : Fishlake NF", "410 : Manti-LaSal NF", "418 : Uinta NF",
      "419 : Wasatch-Cache NF"}},
    {"SW",
     {"301 : Apache/Sigreaves NF", "302 : Carson NF", "303 : Cibola NF", "304 : Coconino NF", "305 : Coronado NF",
      "306 : Gila NF", "307 : Kaibab NF", "308 : Lincoln NF", "309 : Prescott NF", "310 : Santa Fe NF",
      "312 : Tonto NF"}},
    {"WN",
     {"503 : El Dorado NF", "511 : Plumas NF", "513 : Sequoia NF", "515 : Sierra NF", "516 : Stanislaus NF",
      "517 : Tahoe NF"}},
};

}  // namespace

std::array<std::string, kSiteSpeciesRows> SiteSpeciesRows(std::string_view variant) {
  std::array<std::string, kSiteSpeciesRows> rows{};
  for (const SpeciesRowsOfVariant& entry : kSiteSpecies) {
    if (variant != entry.variant) continue;
    for (std::size_t i = 0; i < rows.size(); ++i) rows[i] = entry.rows[i];
  }
  return rows;
}

std::vector<std::string> LocationRows(std::string_view variant) {
  std::vector<std::string> rows;
  for (const LocationRowsOfKey& entry : kLocations) {
    if (variant != entry.key) continue;
    rows.assign(entry.rows.begin(), entry.rows.end());
  }
  return rows;
}

const std::array<const char*, kHabitatTypeRows> HabitatTypeRows = {
    "130 : Yellow Pine/Bluebunch Wheatgrass",
    "170 : Yellow Pine/Common Snowberry",
    "250 : Douglas Fir/Dwarf Huckleberry",
    "260 : Douglas Fir/Ninebark",
    "280 : Douglas Fir/Blue Huckleberry",
    "290 : Douglas Fir/Twinflower",
    "310 : Douglas Fir/Common Snowberry",
    "320 : Douglas Fir/Pinegrass",
    "330 : Douglas Fir/Elk Sedge",
    "420 : Spruce/Queencup Beadlily",
    "470 : Spruce/Twinflower",
    "510 : Grand Fir/Beargrass",
    "520 : Grand Fir/Queencup Beadlily",
    "530 : Red Cedar/Queencup Beadlily",
    "540 : Red Cedar/Lady Fern",
    "550 : Red Cedar/Devil's Club",
    "570 : Western Hemlock/Queencup Beadlily",
    "610 : Sub-Alpine Fir/Devil's Club",
    "620 : Sub-Alpine Fir/Queencup Beadlily",
    "640 : Sub-Alpine Fir/Dwarf Huckleberry",
    "660 : Sub-Alpine Fir/Twinflower",
    "670 : Sub-Alpine Fir/False Azalea",
    "680 : Mountain Hemlock/False Azalea",
    "690 : Sub-Alpine Fir/Beargrass",
    "710 : Mountain Hemlock/Beargrass",
    "720 : Sub-Alpine Fir/Blue Huckleberry",
    "730 : Sub-Alpine Fir/Grouse Whortleberry",
    "830 : Sub-Alpine Fir/Smooth Woodrush",
    "850 : White Bark Pine - Sub-Alpine Fir",
    "999 : Other",
};

const std::array<const char*, kGrowthTranslationRows> GrowthTranslationRows = {
    "0 : Measured directly/end of period",
    "1 : By subtraction/end of period",
    "2 : Measured directly/start of period",
    "3 : By subtraction/start of period",
};

}  // namespace corvalin
