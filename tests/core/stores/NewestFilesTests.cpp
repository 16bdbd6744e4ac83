#include <gtest/gtest.h>

#include "core/base/Files.h"
#include "core/stores/NewestFiles.h"
#include "tests/TemporaryFolder.h"

namespace ambrel {
namespace {

TEST(NewestFiles, AreTheNewestFirstAndAllAreCounted) {
  const TemporaryFolder folder;
  const auto write = [&](const char* name, int age) {
    writeAtomically(folder / name, name);
    std::filesystem::last_write_time(folder / name,
                                     std::filesystem::file_time_type::clock::now() - std::chrono::hours(age));
  };
  write("old.pdf", 9);
  write("new.PNG", 1);
  write("middle", 5);
  write(".hidden", 0);
  write("film.mkv.part", 0);
  std::filesystem::create_symlink("nowhere", folder / "broken");
  std::filesystem::create_directory(folder / "sub");
  const auto found = newestItems(folder / "", 3);
  ASSERT_TRUE(found);
  EXPECT_EQ(found->count, 5u);
  ASSERT_EQ(found->newest.size(), 3u);
  EXPECT_EQ(found->newest[2].name, "new.PNG");
  EXPECT_EQ(found->newest[2].bytes, 7);
  EXPECT_EQ(symbolOf(found->newest[2]), "photo");
  EXPECT_EQ(newestItems(folder / "", 5)->newest[4].name, "old.pdf");
  EXPECT_FALSE(newestItems(folder / "none", 3));
}

}  // namespace
}  // namespace ambrel
