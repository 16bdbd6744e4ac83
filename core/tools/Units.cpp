#include "core/tools/Units.h"

#include <algorithm>
#include <fmt/format.h>

namespace ambrel {
namespace {

constexpr Unit length[]{{"mm", "Millimeters"}, {"cm", "Centimeters"}, {"m", "Meters"},
                        {"km", "Kilometers"},  {"in", "Inches"},      {"ft", "Feet"},
                        {"yd", "Yards"},       {"mi", "Miles"},       {"nautical_mile", "Nautical miles", "nmi"}};
constexpr Unit weight[]{{"mg", "Milligrams"}, {"g", "Grams"},   {"kg", "Kilograms"},      {"t", "Metric tons"},
                        {"oz", "Ounces"},     {"lb", "Pounds"}, {"stone", "Stones", "st"}};
constexpr Unit temperature[]{{"°C", "Celsius"}, {"°F", "Fahrenheit"}, {"K", "Kelvin"}};
constexpr Unit area[]{{"cm^2", "Square centimeters", "cm²"}, {"m^2", "Square meters", "m²"},
                      {"hectare", "Hectares", "ha"},         {"km^2", "Square kilometers", "km²"},
                      {"ft^2", "Square feet", "ft²"},        {"acre", "Acres"},
                      {"mi^2", "Square miles", "mi²"}};
constexpr Unit volume[]{{"mL", "Milliliters"},
                        {"cL", "Centiliters"},
                        {"L", "Liters"},
                        {"m^3", "Cubic meters", "m³"},
                        {"teaspoon", "Teaspoons", "tsp"},
                        {"tablespoon", "Tablespoons", "tbsp"},
                        {"cup", "Cups"},
                        {"liquid_pint", "Pints", "pt"},
                        {"gallon", "Gallons", "gal"}};
constexpr Unit speed[]{{"m/s", "Meters per second"},
                       {"km/h", "Kilometers per hour"},
                       {"mi/h", "Miles per hour", "mph"},
                       {"knot", "Knots", "kn"}};
constexpr Unit time[]{{"ms", "Milliseconds"}, {"s", "Seconds"},        {"min", "Minutes"},     {"h", "Hours"},
                      {"day", "Days", "d"},   {"week", "Weeks", "wk"}, {"year", "Years", "yr"}};
constexpr Unit data[]{{"bit", "Bits"},      {"byte", "Bytes"},   {"kB", "Kilobytes"},  {"MB", "Megabytes"},
                      {"GB", "Gigabytes"},  {"TB", "Terabytes"}, {"KiB", "Kibibytes"}, {"MiB", "Mebibytes"},
                      {"GiB", "Gibibytes"}, {"TiB", "Tebibytes"}};
constexpr Unit energy[]{{"J", "Joules"},
                        {"kJ", "Kilojoules"},
                        {"cal", "Calories"},
                        {"kcal", "Kilocalories"},
                        {"W*h", "Watt hours", "Wh"},
                        {"kW*h", "Kilowatt hours", "kWh"},
                        {"Btu", "British thermal units"}};
constexpr Unit power[]{{"W", "Watts"}, {"kW", "Kilowatts"}, {"MW", "Megawatts"}, {"hp", "Horsepower"}};
constexpr Unit pressure[]{{"Pa", "Pascals"},      {"hPa", "Hectopascals"},           {"bar", "Bars"},
                          {"atm", "Atmospheres"}, {"psi", "Pounds per square inch"}, {"torr", "Torrs"}};
constexpr Unit angle[]{{"deg", "Degrees", "°"}, {"rad", "Radians"}, {"gradian", "Gradians", "gon"}};

constexpr UnitCategory categories[]{{"length", "Length", length},
                                    {"weight", "Weight", weight},
                                    {"temperature", "Temperature", temperature},
                                    {"area", "Area", area},
                                    {"volume", "Volume", volume},
                                    {"speed", "Speed", speed},
                                    {"time", "Time", time},
                                    {"data", "Data", data},
                                    {"energy", "Energy", energy},
                                    {"power", "Power", power},
                                    {"pressure", "Pressure", pressure},
                                    {"angle", "Angle", angle}};

}  // namespace

const Unit* UnitCategory::unit(std::string_view unit) const {
  const auto found = std::ranges::find(units, unit, &Unit::id);
  return found == units.end() ? nullptr : &*found;
}

std::span<const UnitCategory> unitCategories() { return categories; }

const UnitCategory* unitCategory(std::string_view id) {
  const auto found = std::ranges::find(categories, id, &UnitCategory::id);
  return found == std::end(categories) ? nullptr : found;
}

std::string conversion(std::string_view value, const Unit& from, const Unit& to) {
  return fmt::format("({}) {} to {}", value, from.id, to.id);
}

}  // namespace ambrel
