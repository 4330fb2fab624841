#include "platform/registry_file.h"

#include <gtest/gtest.h>

#include "platform/registry_text.h"
#include "tests/support/temp_folder.h"

namespace brovanta::platform {
namespace {

using test::Bytes;
using test::Hex;

const std::string kStart = "Windows Registry Editor Version 5.00\n\n";

RegistryFile Parsed(std::string_view text) {
  auto file = RegistryFile::Parse(text);
  EXPECT_TRUE(file) << text;
  return file.value_or(RegistryFile());
}

RegistryValue Text(std::u16string_view text) { return {REG_SZ, BytesFromText(text)}; }

std::u16string Found(const RegistryFile& file, std::string_view key, std::string_view name) {
  const RegistryValue* const value = file.Find(key, name);
  return value != nullptr && value->type == REG_SZ ? TextFromBytes(value->data) : u"(none)";
}

TEST(RegistryFileTest, FindsValuesUnderTheirKeys) {
  const RegistryFile file = Parsed(kStart +
                                   "[HKEY_CURRENT_USER\\A]\n"
                                   "\"x\"=\"in a\"\n"
                                   "@=\"default\"\n"
                                   "\n"
                                   "[HKEY_CURRENT_USER\\A\\B]\n"
                                   "\"x\"=\"in b\"\n");
  EXPECT_EQ(Found(file, "A", "x"), u"in a");
  EXPECT_EQ(Found(file, "A", ""), u"default");
  EXPECT_EQ(Found(file, "A\\B", "x"), u"in b");
  EXPECT_EQ(Found(file, "A\\B\\", "x"), u"in b");
  EXPECT_EQ(file.Find("A\\B", ""), nullptr);
  EXPECT_EQ(file.Find("B", "x"), nullptr);
}

TEST(RegistryFileTest, TheCaseOfNamesDoesNotCount) {
  const RegistryFile file = Parsed(kStart + "[hkey_current_user\\SOFTWARE]\n\"NAME\"=\"x\"\n");
  EXPECT_EQ(Found(file, "Software", "Name"), u"x");
}

TEST(RegistryFileTest, AKeyExistsByItsSectionOrByOneBelowIt) {
  const RegistryFile file = Parsed(kStart + "[HKEY_CURRENT_USER\\Software\\Brovanta]\n");
  EXPECT_TRUE(file.HasKey("Software\\Brovanta"));
  EXPECT_TRUE(file.HasKey("software"));
  EXPECT_TRUE(file.HasKey(""));
  EXPECT_FALSE(file.HasKey("Software\\Bro"));
  EXPECT_FALSE(file.HasKey("Software\\Brovanta\\Options"));
  EXPECT_FALSE(RegistryFile().HasKey(""));
}

TEST(RegistryFileTest, BlanksAroundLinesAndEqualSignsDoNotCount) {
  const RegistryFile file =
      Parsed(kStart + "  [HKEY_CURRENT_USER\\A]\t\n \"x\" =\t\"1\"  \n\t@ = \"2\"\n");
  EXPECT_EQ(Found(file, "A", "x"), u"1");
  EXPECT_EQ(Found(file, "A", ""), u"2");
}

TEST(RegistryFileTest, ABytesOrderMarkAndBothLineEndsAreTolerated) {
  const std::string text =
      "\xEF\xBB\xBFWindows Registry Editor Version 5.00\r\n[HKEY_CURRENT_USER\\A]\r\n\"x\"=\"1\"\n"
      "\"y\"=\"2\"\r\n";
  RegistryFile file = Parsed(text);
  EXPECT_EQ(Found(file, "A", "x"), u"1");
  EXPECT_EQ(Found(file, "A", "y"), u"2");
  EXPECT_EQ(file.Text(), text);
  ASSERT_TRUE(file.Set("A", "z", Text(u"3")));
  EXPECT_EQ(file.Text(), text + "\"z\"=\"3\"\r\n");
}

TEST(RegistryFileTest, NothingButBlankLinesIsANewFile) {
  for (const char* text : {"", "\n", "\xEF\xBB\xBF", " \r\n\t\n"}) {
    EXPECT_EQ(Parsed(text).Text(), "Windows Registry Editor Version 5.00\n");
  }
}

TEST(RegistryFileTest, AFileWithoutTheHeaderIsOfAnotherKind) {
  for (const char* text :
       {"x", "[HKEY_CURRENT_USER\\A]\n", "\nWindows Registry Editor Version 5.00",
        "Windows Registry Editor Version 5.000\n", "REGEDIT4\n", "\xFF\xFE"}) {
    EXPECT_FALSE(RegistryFile::Parse(text)) << text;
  }
}

TEST(RegistryFileTest, ContinuationLinesAreJoined) {
  const std::string text = kStart +
                           "[HKEY_CURRENT_USER\\A]\n"
                           "\"x\"=hex:01,\\\n"
                           "  02,\\\r\n"
                           "\t03\n"
                           "\"y\"=\"after\"\n";
  RegistryFile file = Parsed(text);
  ASSERT_NE(file.Find("A", "x"), nullptr);
  EXPECT_EQ(file.Find("A", "x")->data, Hex("01 02 03"));
  EXPECT_EQ(Found(file, "A", "y"), u"after");
  EXPECT_EQ(file.Text(), text);
  ASSERT_TRUE(file.Set("A", "x", {REG_BINARY, Hex("FF")}));
  EXPECT_EQ(file.Text(), kStart + "[HKEY_CURRENT_USER\\A]\n\"x\"=hex:ff\n\"y\"=\"after\"\n");
}

TEST(RegistryFileTest, AContinuationThatLeadsNowhereCostsOnlyItsLine) {
  const std::string text = kStart +
                           "[HKEY_CURRENT_USER\\A]\n"
                           "\"x\"=hex:01,\\\n"
                           "\"y\"=\"1\"\n"
                           "\"z\"=hex:01,\\\n"
                           "[HKEY_CURRENT_USER\\B]\n"
                           "\"y\"=\"2\"\n"
                           "\"z\"=hex:01,\\\n";
  const RegistryFile file = Parsed(text);
  EXPECT_EQ(Found(file, "A", "y"), u"1");
  EXPECT_EQ(Found(file, "B", "y"), u"2");
  EXPECT_EQ(file.Find("A", "x"), nullptr);
  EXPECT_EQ(file.Find("B", "z"), nullptr);
  EXPECT_EQ(file.Text(), text);
}

TEST(RegistryFileTest, ALineThatIsNotUnderstoodCostsOnlyItself) {
  const std::string text = kStart +
                           "\"before any key\"=\"x\"\n"
                           "[HKEY_CURRENT_USER\\A]\n"
                           "\"x\"=\"open\n"
                           "\"y\"=what:1\n"
                           "\"gone\"=-\n"
                           "rubbish \x01\xFF\n" +
                           std::string("\0\n", 2) +
                           "\"z\"=\"good\"\n"
                           "[HKEY_CURRENT_USER\\B\n"
                           "\"z\"=\"of no key\"\n"
                           "[-HKEY_CURRENT_USER\\A]\n"
                           "[HKEY_LOCAL_MACHINE\\A]\n"
                           "\"z\"=\"of another root\"\n"
                           "[";
  const RegistryFile file = Parsed(text);
  EXPECT_EQ(Found(file, "A", "z"), u"good");
  EXPECT_EQ(file.Find("A", "x"), nullptr);
  EXPECT_EQ(file.Find("A", "y"), nullptr);
  EXPECT_FALSE(file.HasKey("B"));
  EXPECT_EQ(file.Text(), text);
}

TEST(RegistryFileTest, OfAValueThatStandsTwiceTheLastCountsAndIsReplaced) {
  RegistryFile file = Parsed(kStart +
                             "[HKEY_CURRENT_USER\\A]\n\"x\"=\"1\"\n[HKEY_CURRENT_USER\\B]\n"
                             "[HKEY_CURRENT_USER\\A]\n\"X\"=\"2\"\n");
  EXPECT_EQ(Found(file, "A", "x"), u"2");
  ASSERT_TRUE(file.Set("A", "x", Text(u"3")));
  EXPECT_EQ(file.Text(), kStart +
                             "[HKEY_CURRENT_USER\\A]\n\"x\"=\"1\"\n[HKEY_CURRENT_USER\\B]\n"
                             "[HKEY_CURRENT_USER\\A]\n\"x\"=\"3\"\n");
}

TEST(RegistryFileTest, AChangeKeepsEveryOtherByte) {
  RegistryFile file = Parsed(kStart +
                             "; first\n"
                             "[HKEY_CURRENT_USER\\A] \n"
                             "\"b\"=what:1\n"
                             "  \"x\"=\"old\"\n"
                             "\"a\"=dword:1\n"
                             "\n"
                             "; of the next\n"
                             "[HKEY_CURRENT_USER\\Other]\n"
                             "\"y\"=hex(7):41,00");
  ASSERT_TRUE(file.Set("a", "X", Text(u"new")));
  ASSERT_TRUE(file.Set("A", "c", {REG_DWORD, Hex("07 00 00 00")}));
  ASSERT_TRUE(file.Set("Other", "", Text(u"d")));
  EXPECT_EQ(file.Text(), kStart +
                             "; first\n"
                             "[HKEY_CURRENT_USER\\A] \n"
                             "\"b\"=what:1\n"
                             "\"X\"=\"new\"\n"
                             "\"a\"=dword:1\n"
                             "\"c\"=dword:00000007\n"
                             "\n"
                             "; of the next\n"
                             "[HKEY_CURRENT_USER\\Other]\n"
                             "\"y\"=hex(7):41,00\n"
                             "@=\"d\"\n");
}

TEST(RegistryFileTest, AnEqualValueKeepsItsSpelling) {
  const std::string text = kStart + "[HKEY_CURRENT_USER\\A]\n\"x\"=dword:7\n";
  RegistryFile file = Parsed(text);
  ASSERT_TRUE(file.Set("A", "x", {REG_DWORD, Hex("07 00 00 00")}));
  EXPECT_EQ(file.Text(), text);
}

TEST(RegistryFileTest, AValueOfUnknownFormIsNotOverwritten) {
  RegistryFile file = Parsed(kStart + "[HKEY_CURRENT_USER\\A]\n\"x\"=what:1\n");
  ASSERT_TRUE(file.Set("A", "x", Text(u"2")));
  EXPECT_EQ(Found(file, "A", "x"), u"2");
  EXPECT_EQ(file.Text(), kStart + "[HKEY_CURRENT_USER\\A]\n\"x\"=what:1\n\"x\"=\"2\"\n");
}

TEST(RegistryFileTest, ANewKeyComesBehindAnEmptyLine) {
  RegistryFile file;
  ASSERT_TRUE(file.AddKey("A"));
  ASSERT_TRUE(file.AddKey("a"));
  ASSERT_TRUE(file.Set("B\\C\\", "x", Text(u"1")));
  EXPECT_EQ(file.Text(),
            kStart + "[HKEY_CURRENT_USER\\A]\n\n[HKEY_CURRENT_USER\\B\\C]\n\"x\"=\"1\"\n");
}

TEST(RegistryFileTest, ALineWithoutItsEndGetsOneBeforeAnotherFollows) {
  RegistryFile file = Parsed("Windows Registry Editor Version 5.00");
  ASSERT_TRUE(file.AddKey("A"));
  EXPECT_EQ(file.Text(), kStart + "[HKEY_CURRENT_USER\\A]\n");
}

TEST(RegistryFileTest, AValueWhoseLineIsDamagedIsToldFromOneThatIsNotThere) {
  const std::string key = "[HKEY_CURRENT_USER\\Software\\Example]\n";
  const auto is_damaged = [&](const std::string& lines) {
    const auto file = RegistryFile::Parse(kStart + lines);
    return file && file->HasDamagedValue("InstallPath");
  };
  for (const char* line :
       {"\"InstallPath\"=\"/x", "\"InstallPath\"", "\"InstallPath", "installpath=/x",
        " \"INSTALLPATH\"=dword:z", "InstallPath /x", "#\"InstallPath\"=\"/x\"", "\"InstallP",
        "InstallP", "\"", "\"InstallPaht\"=\"/x\"", "\"Install Path\"=\"/x\"",
        "\"nstallPath\"=\"/x\"", "\"1nstallPaths\"=?", "InstllPath\"=\"/x\""}) {
    EXPECT_TRUE(is_damaged(key + line + "\n")) << line;
    EXPECT_TRUE(is_damaged("[HKEY_CURRENT_USER\\Other]\n" + std::string(line) + "\n")) << line;
  }
  for (const char* lines : {"[HKEY_CURRENT_USER\\Softw\n\"InstallPath\"=\"/x\"\n",
                            "HKEY_CURRENT_USER\\Software\\Example]\n\"InstallPath\"=\"/x\"\n",
                            "[HKEY_CURRENT_USER\\Softwere\\Example]\n\"InstallPath\"=\"/x\"\n",
                            "\"InstallPath\"=\"/x\"\n"}) {
    EXPECT_TRUE(is_damaged(lines)) << lines;
  }
  for (const char* line : {"\"InstallPathOfOld\"=\"/x", "; \"InstallPath\"=\"/x", "\"Inst\"=?",
                           "\"Path\"=?", "", "\"UpdateServer\"=\"http://x\"", "\"Tax\"=dword:z"}) {
    EXPECT_FALSE(is_damaged(key + line + "\n")) << line;
  }
}

TEST(RegistryFileTest, OfAFileCutInALineAnyValueMayBeLost) {
  const std::string key = "[HKEY_CURRENT_USER\\Software\\Example]";
  const auto is_damaged = [](const std::string& lines) {
    const auto file = RegistryFile::Parse(kStart + lines);
    return file && file->HasDamagedValue("InstallPath");
  };
  for (const std::string& lines : {key, key.substr(0, 20), key + "\n\"Upd",
                                   key + "\n\"Tax\"=hex(4):0,\\", key + "\n\"Tax\"=dword:1\n["}) {
    EXPECT_TRUE(is_damaged(lines)) << lines;
  }
  EXPECT_FALSE(is_damaged(key + "\n\"Tax\"=dword:1")) << "a person wrote the last line";
  EXPECT_FALSE(is_damaged(key + "\n\"Tax\"=dword:1\n; so far"));
}

TEST(RegistryFileTest, AHeaderAndKeysAreNoValues) {
  for (const std::string& lines :
       {std::string(), kStart, kStart + "[HKEY_CURRENT_USER\\A]\n; b\n"}) {
    EXPECT_FALSE(Parsed(lines).HasValues()) << lines;
  }
  EXPECT_TRUE(Parsed(kStart + "[HKEY_CURRENT_USER\\A]\n\"x\"=dword:1\n").HasValues());
  EXPECT_TRUE(Parsed(kStart + "\"x").HasValues());
}

TEST(RegistryFileTest, NamesWithControlCharactersAreRefused) {
  RegistryFile file;
  EXPECT_FALSE(file.AddKey("A\nB"));
  EXPECT_FALSE(file.Set("A", "x\ny", Text(u"1")));
  EXPECT_FALSE(file.Set("A\x1F", "x", Text(u"1")));
  EXPECT_EQ(file.Text(), RegistryFile().Text());
}

TEST(RegistryFileTest, EveryKindOfValueAndNameComesBack) {
  const std::string name = "a \"name\" with \\ and = and ] and \xC3\xA9";
  const std::string key = "a [key] = \"x\"; ";
  for (const RegistryValue& value : {Text(u"x"), Text(u"line\r\nbreak"), Text(u"\"\\"),
                                     RegistryValue{REG_DWORD, test::Run(8, 0x40)},
                                     RegistryValue{REG_BINARY, test::Run(300, 0xAB)},
                                     RegistryValue{7, test::Run(25)}, RegistryValue{}}) {
    RegistryFile file;
    ASSERT_TRUE(file.Set(key, name, value));
    const RegistryFile again = Parsed(file.Text());
    const RegistryValue* const found = again.Find(key, name);
    ASSERT_NE(found, nullptr) << file.Text();
    EXPECT_EQ(found->type, value.type);
    EXPECT_EQ(found->data, value.data);
  }
}

TEST(RegistryFileTest, AFileCutAnywhereIsReadWithoutItsEnd) {
  const std::string text = kStart +
                           "[HKEY_CURRENT_USER\\A]\n\"x\"=\"first\"\n"
                           "\"y\"=hex:01,\\\n  02,03\n";
  const std::size_t behind_x = text.find("\"y\"");
  for (std::size_t length = kStart.size(); length < text.size(); ++length) {
    const RegistryFile file = Parsed(text.substr(0, length));
    EXPECT_EQ(file.Text(), text.substr(0, length));
    if (length >= behind_x) {
      EXPECT_EQ(Found(file, "A", "x"), u"first");
    }
  }
}

}  // namespace
}  // namespace brovanta::platform
