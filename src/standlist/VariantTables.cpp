#include "standlist/VariantTables.h"

#include "columns/SpeciesCodes.h"

namespace corvalin {

namespace {

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
  // The stand's site species are the variant's species slots, placeholders
  // and repeats included; a text that is no variant gives empty rows.
  const SpeciesList* slots = SpeciesRowOf(variant);
  return slots != nullptr ? *slots : std::array<std::string, kSiteSpeciesRows>{};
}

std::vector<std::string> LocationRows(std::string_view variant) {
  std::vector<std::string> rows;
  for (const LocationRowsOfKey& entry : kLocations) {
    if (variant != entry.key) continue;
    rows.assign(entry.rows.begin(), entry.rows.end());
  }
  return rows;
}

const std::array<const char*, kGrowthTranslationRows> GrowthTranslationRows = {
    "0 : Measured directly/end of period",
    "1 : By subtraction/end of period",
    "2 : Measured directly/start of period",
    "3 : By subtraction/start of period",
};

}  // namespace corvalin
