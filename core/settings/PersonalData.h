#pragma once
// What the program keeps of its user, and where; for the page on which it can be looked at and deleted.

#include <filesystem>
#include <span>
#include <string_view>
#include <vector>

namespace ambrel {

struct PersonalData {
  std::string_view id, title, detail;
  // Names in the program's own folder; none: the file of the choices.
  std::vector<std::string_view> names;
  bool isCopy = false;  // the names are in the folder for what can be fetched again
};
// In the order of the page.
std::span<const PersonalData> personalData();

struct PersonalPlaces {
  std::filesystem::path data;      // the program's own folder
  std::filesystem::path defaults;  // defaults.json
  std::filesystem::path cache;     // the program's own folder for what can be fetched again
};
std::filesystem::path folderOf(const PersonalData& data, const PersonalPlaces& places);
// What is there of it now, with the copies that were set aside.
std::vector<std::filesystem::path> filesOf(const PersonalData& data, const PersonalPlaces& places);
// The same by id; "": all that the program has written in these places, but for the licence.
std::vector<std::filesystem::path> filesOf(std::string_view id, const PersonalPlaces& places);

// Bytes of these files and of what is in these folders; links are not followed.
std::uintmax_t sizeOf(const std::vector<std::filesystem::path>& files);
// Those that could not be deleted. Links are not followed.
std::vector<std::filesystem::path> deleteFiles(const std::vector<std::filesystem::path>& files);

}  // namespace ambrel
