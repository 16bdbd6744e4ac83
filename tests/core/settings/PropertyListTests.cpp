#include <gtest/gtest.h>

#include "core/settings/PropertyList.h"

namespace ambrel {
namespace {

std::string plist(const std::string& inside) {
  return R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<!-- a > comment -->
<plist version="1.0">)" +
         inside + "</plist>\n";
}

TEST(PropertyList, ReadsEveryKindOfValue) {
  const auto read = parsePropertyList(plist(R"(<dict>
    <key>text</key><string>a &lt;b&gt; &amp;amp; &quot;&apos; &#233;&#x1F600; é
</string>
    <key>empty</key><string/>
    <key>whole</key> <integer> -42 </integer>
    <key>real</key><real>1.5e3</real>
    <key>yes</key><true/><key>no</key><false></false>
    <key>when</key><date>2026-11-21T09:00:00Z</date>
    <key>bytes</key><data>
      AAEC
      Aw==
    </data>
    <key>list</key><array><string>x</string><array/><dict/></array>
    <key>a &amp; b</key><dict><key>inner</key><integer>1</integer></dict>
  </dict>)"));
  ASSERT_TRUE(read);
  const DefaultsDictionary expected{
      {"text", {std::string("a <b> &amp; \"' é😀 é\n")}},
      {"empty", {std::string()}},
      {"whole", {std::int64_t{-42}}},
      {"real", {1500.0}},
      {"yes", {true}},
      {"no", {false}},
      {"when", {parseISO8601("2026-11-21T09:00:00Z").value()}},
      {"bytes", {DefaultsData{std::string("\0\1\2\3", 4)}}},
      {"list", {DefaultsArray{{std::string("x")}, {DefaultsArray{}}, {DefaultsDictionary{}}}}},
      {"a & b", {DefaultsDictionary{{"inner", {std::int64_t{1}}}}}},
  };
  EXPECT_EQ(*read, expected);
  EXPECT_EQ(parsePropertyList("<plist><dict/></plist>"), DefaultsDictionary{});
  const auto odd = parsePropertyList(plist("<dict><key>k</key><string> &unknown; &amp </string></dict>"));
  ASSERT_TRUE(odd);
  EXPECT_EQ(odd->at("k"), DefaultsValue{std::string(" &unknown; &amp ")});
}

TEST(PropertyList, AnythingElseIsAbsent) {
  std::string deep;
  for (int i = 0; i < 200; ++i) deep += "<array>";
  const auto value = [](const std::string& inside) { return plist("<dict><key>k</key>" + inside + "</dict>"); };
  EXPECT_TRUE(parsePropertyList(value("<string>fine</string>")));
  for (const char* text : {"", "bplist00\xd1\x01\x02", "{\"a\":1}", "<", "<!--", "<plist>", "<plist/>"})
    EXPECT_FALSE(parsePropertyList(text)) << text;
  for (const char* inside :
       {"", "<string>no dictionary</string>", "<dict></dict><dict></dict>", "<dict>",
        "<dict><string>no key</string></dict>", "<dict><key>k</key></dict>", "<dict><key>k</dict>"})
    EXPECT_FALSE(parsePropertyList(plist(inside))) << inside;
  EXPECT_FALSE(parsePropertyList(plist("<dict/>") + "<dict/>"));
  for (const char* bad :
       {"<string>x</integer>", "<string>a<b/>c</string>", "<string>\xff</string>",
        // Of other types.
        "<integer>4x</integer>", "<integer>99999999999999999999</integer>", "<integer/>", "<real>1.2.3</real>",
        "<date>yesterday</date>", "<data>%%%%</data>", "<true>x</true>", "<set/>"})
    EXPECT_FALSE(parsePropertyList(value(bad))) << bad;
  EXPECT_FALSE(parsePropertyList(value(deep)));
}

}  // namespace
}  // namespace ambrel
