#include <gtest/gtest.h>

#include "core/web/Address.h"

namespace ambrel {
namespace {

TEST(Address, IsWhatABrowserWouldOpen) {
  const struct {
    const char *typed, *address;
  } cases[] = {
      {" example.com ", "https://example.com"},
      {"example.com/a?b=c#d", "https://example.com/a?b=c#d"},
      {"http://example.com", "http://example.com"},
      {"HTTPS://Example.com/A", "HTTPS://Example.com/A"},
      {"localhost:8080/x", "http://localhost:8080/x"},
      {"127.0.0.1", "http://127.0.0.1"},
      {"http://intranet/", "http://intranet/"},
      {"intranet", "none"},
      {"two words.com", "none"},
      {"javascript:alert(1)", "none"},
      {"javascript://example.com/%0aalert(1)", "none"},
      {"file:///etc/passwd", "none"},
      {"mailto:somebody@example.com", "none"},
      {"https://", "none"},
      {"https://:80/", "none"},
      {"", "none"},
  };
  for (const auto& [typed, address] : cases) EXPECT_EQ(pageAddress(typed).value_or("none"), address) << typed;
  EXPECT_EQ(siteName("https://user:pw@www.Example.com:81/a"), "example.com:81");
}

TEST(Address, OnlySafeServersAreAsked) {
  EXPECT_TRUE(mayBeAsked("https://example.com/a"));
  EXPECT_TRUE(mayBeAsked("http://127.0.0.1:81/a"));
  for (const char* unsafe : {"http://example.com/", "file:///etc/passwd", "http://127.0.0.1.example.com/", ""})
    EXPECT_FALSE(mayBeAsked(unsafe)) << unsafe;
  EXPECT_TRUE(mayBeAsked("http://weather.lan/", true));
  const struct {
    const char *from, *to;
    bool may;
  } cases[] = {{"https://a.example/", "https://b.example/", true},  {"https://a.example/", "http://a.example/", false},
               {"https://a.example/", "https://localhost/", false}, {"https://a.example/", "http://127.0.0.1/", false},
               {"https://a.example/", "file:///etc/passwd", false}, {"http://localhost/", "http://127.0.0.1:81/", true},
               {"http://localhost/", "https://b.example/", true}};
  for (const auto& [from, to, may] : cases) EXPECT_EQ(mayLeadTo(from, to), may) << from << ' ' << to;
  EXPECT_TRUE(mayLeadTo("http://a.lan/", "http://b.lan/", true));
  EXPECT_FALSE(mayLeadTo("https://a.lan/", "http://b.lan/", true));
}

TEST(Address, AnIconComesFromItsOwnSiteAlone) {
  EXPECT_EQ(iconSite("https://Example.com/a/b"), "https://example.com/");
  EXPECT_EQ(iconSite("http://localhost:81/a"), "http://localhost:81/");
  EXPECT_EQ(iconSite("http://[::1]/a"), "http://[::1]/");
  EXPECT_FALSE(iconSite("http://example.com/"));
  EXPECT_FALSE(iconSite("http://127.0.0.1.example.com/"));
  const char* site = "https://example.com/";
  EXPECT_TRUE(isOfSite(site, "https://www.example.com/icon.png"));
  for (const char* other :
       {"http://example.com/icon.png", "https://example.com.evil.net/", "https://icons.example.com/",
        "https://example.com:444/", "https://example.com@evil.net/", "https://evil.net\\@example.com/"})
    EXPECT_FALSE(isOfSite(site, other)) << other;
}

TEST(Address, FindsTheIconThatAPageNames) {
  EXPECT_EQ(iconLink("<link rel=stylesheet href=a.css><LINK REL='shortcut icon' HREF=\"/i.png?v=2\">"), "/i.png?v=2");
  EXPECT_EQ(iconLink("<link data-href=no href=i.ico rel=icon>"), "i.ico");
  EXPECT_FALSE(iconLink("<link rel=\"icon\" href=\"\"><link rel=icons href=x><link rel=icon href=i"));
}

}  // namespace
}  // namespace ambrel
