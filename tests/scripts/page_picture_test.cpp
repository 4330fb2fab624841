// scripts/page-picture with a stand-in for the browser, and with the real one where there is one.
#include <gmock/gmock.h>

#include <filesystem>
#include <string>

#include "tests/server/running_server.h"
#include "tests/support/child_process.h"
#include "tests/support/temp_folder.h"

namespace brovanta {
namespace {

using test::ChildProcess;
using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

namespace fs = std::filesystem;

constexpr char kAddress[] = "http://127.0.0.1:1/coupons/coupon.aspx?srcId=5";

class PagePictureTest : public testing::Test {
 protected:
  int Run(std::vector<std::string> arguments, const std::string& path,
          const std::string& seconds = "90") {
    arguments.insert(arguments.begin(), {"/bin/bash", BROVANTA_SCRIPTS "/page-picture"});
    ChildProcess script(arguments, folder_.File("errors"),
                        {{"PATH", path}, {"PAGE_PICTURE_SECONDS", seconds}});
    output_ = script.ReadAll();
    return script.Wait();
  }

  // A folder of programs that holds what the script needs, and a browser of this text if any.
  std::string ProgramsWith(const std::string& browser) {
    fs::create_directories(folder_.File("bin"));
    for (const char* name :
         {"bash", "mktemp", "rm", "mv", "id", "timeout", "tail", "printf", "sleep"}) {
      fs::create_symlink(fs::exists(std::string("/usr/bin/") + name)
                             ? std::string("/usr/bin/") + name
                             : std::string("/bin/") + name,
                         folder_.File("bin/") + name);
    }
    if (!browser.empty()) {
      folder_.WriteText("bin/chromium", browser);
      fs::permissions(folder_.File("bin/chromium"), fs::perms(0700));
    }
    return folder_.File("bin");
  }

  std::string Text(const std::string& name) { return folder_.ReadText(name).value_or(""); }

  test::TempFolder folder_;
  std::string output_;
};

TEST_F(PagePictureTest, AsksTheBrowserForAPictureOfThatSize) {
  const std::string path = ProgramsWith(
      "#!/bin/bash\nprintf '%s\\n' \"$@\" >\"" + folder_.File("asked") +
      "\"\nfor word; do case $word in --screenshot=*) echo drawn >\"${word#*=}\" ;; esac; done\n");
  EXPECT_EQ(Run({kAddress, folder_.File("page.png"), "320x480"}, path), 0);
  EXPECT_EQ(Text("page.png"), "drawn\n");
  EXPECT_THAT(Text("asked"), AllOf(StartsWith("--headless\n"), HasSubstr("--window-size=320,480\n"),
                                   testing::EndsWith(std::string(kAddress) + "\n")));
}

TEST_F(PagePictureTest, SaysThatThereIsNoBrowser) {
  EXPECT_EQ(Run({kAddress, folder_.File("page.png")}, ProgramsWith("")), 3);
  EXPECT_EQ(Text("errors"),
            std::string("There is no Chromium on this machine: no picture of ") + kAddress + ".\n");
  EXPECT_FALSE(fs::exists(folder_.File("page.png")));
}

TEST_F(PagePictureTest, SaysWhenTheBrowserDrawsNothing) {
  const std::string path = ProgramsWith("#!/bin/bash\necho 'no such host'\n");
  EXPECT_EQ(Run({kAddress, folder_.File("page.png")}, path), 1);
  EXPECT_THAT(Text("errors"),
              AllOf(StartsWith("Chromium could not draw"), HasSubstr("no such host\n")));
  EXPECT_FALSE(fs::exists(folder_.File("page.png")));
}

TEST_F(PagePictureTest, GivesUpABrowserThatHangs) {
  const std::string path = ProgramsWith("#!/bin/bash\ntrap '' TERM INT\nsleep 1000\n");
  EXPECT_EQ(Run({kAddress, folder_.File("page.png")}, path, "0.2"), 4);
  EXPECT_EQ(Text("errors"),
            std::string("Chromium did not draw ") + kAddress + " within 0.2 seconds.\n");
  EXPECT_FALSE(fs::exists(folder_.File("page.png")));
}

TEST_F(PagePictureTest, RefusesWrongArguments) {
  const std::string path = ProgramsWith("");
  EXPECT_EQ(Run({kAddress}, path), 2);
  EXPECT_EQ(Run({kAddress, "a.png", "large"}, path), 2);
  EXPECT_THAT(Text("errors"), StartsWith("Usage:"));
}

TEST_F(PagePictureTest, DrawsACouponOfTheDemonstration) {
  test::RunningServer server;
  server.FillWithDemo(server::Today());
  const std::string picture = folder_.File("page.png");
  const int status = Run({server.url() + "/coupons/coupon.aspx?srcId=1", picture}, getenv("PATH"));
  if (status == 3) GTEST_SKIP() << Text("errors");
  ASSERT_EQ(status, 0) << Text("errors");
  const auto png = folder_.Read("page.png");
  ASSERT_TRUE(png);
  // Width and height stand behind the signature and the name of the first chunk.
  ASSERT_GT(png->size(), 24u);
  EXPECT_EQ(test::Bytes(png->begin() + 12, png->begin() + 24),
            test::Hex("49 48 44 52 00 00 02 D0 00 00 05 00"));
}

}  // namespace
}  // namespace brovanta
