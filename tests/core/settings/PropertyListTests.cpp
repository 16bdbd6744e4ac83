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
  for (const auto& text : {std::string(),
                           std::string("bplist00\xd1\x01\x02"),
                           std::string("{\"a\":1}"),
                           std::string("<"),
                           std::string("<!--"),
                           std::string("<plist>"),
                           std::string("<plist/>"),
                           plist(""),
                           plist("<string>no dictionary</string>"),
                           plist("<dict></dict><dict></dict>"),
                           plist("<dict>") + "x",
                           plist("<dict/>") + "<dict/>",
                           plist("<dict><string>no key</string></dict>"),
                           plist("<dict><key>k</key></dict>"),
                           plist("<dict><key>k</dict>"),
                           value("<string>x</integer>"),
                           value("<string>a<b/>c</string>"),
                           value("<string>\xff</string>"),
                           value("<integer>4x</integer>"),
                           value("<integer>99999999999999999999</integer>"),
                           value("<integer/>"),
                           value("<real>1.2.3</real>"),
                           value("<date>yesterday</date>"),
                           value("<data>%%%%</data>"),
                           value("<true>x</true>"),
                           value("<set/>"),
                           value(deep)})
    EXPECT_FALSE(parsePropertyList(text)) << text.substr(0, 300);
}

}  // namespace
}  // namespace ambrel
