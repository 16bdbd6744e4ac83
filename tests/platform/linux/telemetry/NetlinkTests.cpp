#include <linux/genetlink.h>

#include "platform/linux/telemetry/Netlink.h"
#include "tests/Matchers.h"

namespace ambrel::netlink {
namespace {

// A message with its header; type 3 ends an answer, type 2 refuses or acknowledges.
std::string message(std::uint16_t type, std::uint32_t sequence, const std::string& body) {
  std::string bytes;
  const auto put = [&](const auto& value) { bytes.append(reinterpret_cast<const char*>(&value), sizeof value); };
  put(static_cast<std::uint32_t>(16 + body.size()));
  put(type);
  put(std::uint16_t{0});
  put(sequence);
  put(std::uint32_t{77});
  bytes += body;
  bytes.resize((bytes.size() + 3) & ~std::size_t(3));
  return bytes;
}
std::string generic(std::uint8_t command, const std::string& attributes) {
  return std::string{static_cast<char>(command), 1, 0, 0} + attributes;
}

TEST(Netlink, AttributesAreReadAsTheyWereWritten) {
  std::string bytes;
  append(bytes, 3, std::uint32_t{0x01020304});
  append(bytes, 4, std::string_view("wlan0\0", 6));
  append(bytes, 0x8005, std::string_view("a"));  // the highest bits are flags
  const auto list = attributes(bytes);
  ASSERT_EQ(list.size(), 3u);
  EXPECT_EQ(find(list, 3)->u32(), 0x01020304u);
  EXPECT_EQ(find(list, 3)->u16(), 0x0304);
  EXPECT_EQ(find(list, 4)->text(), "wlan0");
  EXPECT_EQ(find(list, 5)->u8(), 'a');
  EXPECT_EQ(find(list, 5)->u16(), std::nullopt);
  EXPECT_EQ(find(list, 6), nullptr);
}

TEST(Netlink, DamagedAttributesEndTheList) {
  std::string bytes;
  append(bytes, 1, std::uint32_t{1});
  for (const std::string& tail :
       {std::string("\x03\0\x01\0", 4), std::string("\xff\xff\x01\0", 4), std::string("\x08")})
    EXPECT_EQ(attributes(bytes + tail).size(), 1u);
  EXPECT_THAT(attributes(""), IsEmpty());
}

TEST(Netlink, AnAnswerEndsWhenItSaysSo) {
  const Decoded first = decode(message(30, 9, generic(7, "abcd")) + message(30, 8, generic(7, "an older question")) +
                                   message(30, 9, generic(8, "")),
                               9);
  ASSERT_EQ(first.replies.size(), 2u);
  EXPECT_EQ(first.replies[0].command, 7);
  EXPECT_EQ(first.replies[0].attributes, "abcd");
  EXPECT_FALSE(first.isLast);

  const Decoded done = decode(message(3, 9, std::string(4, '\0')), 9);
  EXPECT_TRUE(done.isLast);
  EXPECT_FALSE(done.isRefused);
  EXPECT_FALSE(decode(message(2, 9, std::string(4, '\0')), 9).isRefused) << "an acknowledgement";
  EXPECT_TRUE(decode(message(2, 9, std::string("\xff\xff\xff\xff", 4)), 9).isRefused);
  EXPECT_TRUE(decode(message(2, 9, ""), 9).isRefused);
  EXPECT_FALSE(decode(std::string("\x08\0\0\0", 4), 9).isLast) << "shorter than it says";
}

TEST(NetlinkHere, TheKernelAnswersForItsOwnController) {
  Connection connection;
  Request request{.family = GENL_ID_CTRL, .command = CTRL_CMD_GETFAMILY};
  append(request.attributes, CTRL_ATTR_FAMILY_NAME, std::string_view("nlctrl\0", 7));
  const auto answer = connection.exchange(request);
  if (!answer) GTEST_SKIP() << "no generic netlink here";
  ASSERT_EQ(answer->size(), 1u);
  EXPECT_EQ(find(attributes(answer->front().attributes), CTRL_ATTR_FAMILY_ID)->u16(), GENL_ID_CTRL);
  Request unknown{.family = GENL_ID_CTRL, .command = CTRL_CMD_GETFAMILY};
  append(unknown.attributes, CTRL_ATTR_FAMILY_NAME, std::string_view("no such\0", 8));
  EXPECT_EQ(connection.exchange(unknown), std::nullopt);
}

}  // namespace
}  // namespace ambrel::netlink
