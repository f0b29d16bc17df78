#include "columns/Vocabulary.h"

#include "shell/Error.h"

namespace corvalin {

const std::vector<std::string>& HeaderChoices() {
  static const std::vector<std::string> items = {
      "? column",
      "Plot ID",
      "Tree ID",
      "Tree Count",
      "Tree History",
      "Species",
      "DBH",
      "Periodic DBH Inc.",
      "Total Height",
      "Height to Topkill",
      "Periodic Height Inc.",
      "Crown Ratio",
      "Damage/Severity - 1",
      "Damage/Severity - 2",
      "Damage/Severity - 3",
      "Tree Value Class",
      "Cut/Leave Prescription",
      "Plot Slope",
      "Plot Aspect",
      "Plot US Habitat Type",
      "Plot Topographic Position",
      "Plot Site Preparation",
  };
  return items;
}

const std::vector<std::string>& VariantNames() {
  static const std::vector<std::string> items = {"AK", "BC", "BH", "BM", "CI", "EC", "EM", "NC",
                                                 "NI", "SO", "SW", "TT", "UT", "WS", "KT"};
  return items;
}

const std::vector<std::string>& TreeHistoryItems() {
  // Ranges, so that a pick enters the first digit of the range.
  static const std::vector<std::string> items = {"1-5 : Live Trees", "6-7 : Dead Merchantable",
                                                 "8-9 : Dead Waste"};
  return items;
}

const std::vector<std::string>& CrownRatioItems() {
  static const std::vector<std::string> items = {"1 : 1-10%",  "2 : 11-20%", "3 : 21-30%",
                                                 "4 : 31-40%", "5 : 41-50%", "6 : 51-60%",
                                                 "7 : 61-70%", "8 : 71-80%", "9 : 81-100%"};
  return items;
}

const std::vector<std::string>& TreeValueClassItems() {
  // The model knows no classes 4 to 7.
  static const std::vector<std::string> items = {"1 : Preferred", "2 : Acceptable", "3 : Live Cull",
                                                 "8 : Non-stockable opening"};
  return items;
}

const std::vector<std::string>& CutLeavePrescriptionItems() {
  static const std::vector<std::string> items = {"1 : Cut",      "2 : Leave",    "3 : Option 3",
                                                 "4 : Option 4", "5 : Option 5", "6 : Option 6",
                                                 "7 : Option 7", "8 : Option 8", "9 : Option 9"};
  return items;
}

const std::vector<std::string>& PlotTopographicalPositionItems() {
  static const std::vector<std::string> items = {"1 : Bottom", "2 : Lower Slope", "3 : Mid Slope",
                                                 "4 : Upper Slope", "5 : Ridge Top"};
  return items;
}

const std::vector<std::string>& PlotSitePreparationItems() {
  static const std::vector<std::string> items = {"1 : None", "2 : Mechanical", "3 : Burned",
                                                 "4 : Road Cut, Fills, etc."};
  return items;
}

const std::vector<std::string>& PlotHabitatItems() {
  static const std::vector<std::string> items = {
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
  return items;
}

bool IsLengthType(std::string_view type) {
  return type == "DBH" || type == "Periodic DBH Inc." || type == "Total Height" || type == "Height to Topkill" ||
         type == "Periodic Height Inc.";
}

std::vector<std::string> UnitChoicesFor(std::string_view type, bool metric) {
  if (type == "Plot Slope") return {"%", "degrees"};
  if (type == "Crown Ratio") return {"codes", "%"};
  if (IsLengthType(type)) {
    if (metric) return {"m", "dm", "cm", "mm"};
    return {"yards", "feet", "inches"};
  }
  return {};
}

bool IsUnitsOfMeasurementSystem(std::string_view units, bool metric) {
  if (metric) return units == "cm" || units == "m" || units == "mm" || units == "dm";
  return units == "feet" || units == "yards" || units == "inches";
}

bool HasPickList(std::string_view type, std::string_view units) {
  return type == "Species" || type == "Tree History" || type == "Damage/Severity - 1" ||
         type == "Damage/Severity - 2" || type == "Damage/Severity - 3" || type == "Tree Value Class" ||
         type == "Cut/Leave Prescription" || type == "Plot US Habitat Type" ||
         type == "Plot Topographic Position" || type == "Plot Site Preparation" ||
         (type == "Crown Ratio" && units == "codes");
}

std::string MakeHeading(std::string_view type, std::string_view units) {
  std::string heading(type);
  heading += "\r\n";
  heading += units;
  return heading;
}

std::string HeadingType(std::string_view heading) {
  const auto cr = heading.find('\r');
  return std::string(cr == std::string_view::npos ? heading : heading.substr(0, cr));
}

void SplitHeading(std::string_view heading, std::string& type, std::string& units) {
  const auto cr = heading.find('\r');
  if (cr == std::string_view::npos) Raise(err::InvalidProcedureCall);
  type = std::string(heading.substr(0, cr));
  units = cr + 2 <= heading.size() ? std::string(heading.substr(cr + 2)) : std::string();
}

bool HeadingIsAssigned(std::string_view heading) { return heading.empty() || heading.front() != '?'; }

}  // namespace corvalin
