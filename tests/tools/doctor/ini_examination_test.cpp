#include "doctor/ini_examination.h"

#include <gtest/gtest.h>

namespace tolvex::ctl {
namespace {

using Lines = std::vector<std::string>;

// Each finding as "state: text / fix".
Lines iniFindings(const std::string& bytes) {
  Lines lines;
  for (const Finding& finding : examineIni(bytes, "till.ini").findings) {
    lines.push_back(std::string(wordOf(finding.mark)) + ": " + finding.text +
                    (finding.fix.empty() ? "" : " / " + finding.fix));
  }
  return lines;
}

std::string address(const std::string& bytes) { return examineIni(bytes, "till.ini").address; }

const char kWriteIt[] = "Write the line as \"ip_addr=10.1.2.3\", without any blank.";

TEST(ExamineIni, TakesAnAddressThatTheLibraryTakes) {
  for (const char* bytes : {"[zelkad]\nip_addr=10.1.2.3\n", "[zelkad]\r\nip_addr=10.1.2.3\r\n",
                            "; comment\n\n[zelkad]\nip_addr=1.1.1.1\nip_addr=10.1.2.3"}) {
    EXPECT_EQ(address(bytes), "10.1.2.3") << bytes;
    EXPECT_EQ(iniFindings(bytes), Lines{"fine: till.ini names the address 10.1.2.3"}) << bytes;
  }
}

TEST(ExamineIni, NamesABlankBeforeTheEqualsSign) {
  EXPECT_EQ(address("[zelkad]\nip_addr = 10.1.2.3\n"), "");
  EXPECT_EQ(iniFindings("[zelkad]\nip_addr = 10.1.2.3\n"),
            Lines{std::string("failed: ip_addr in till.ini, line 2 is not found: there is a blank "
                              "before the '=' / ") +
                  kWriteIt});
}

TEST(ExamineIni, NamesABlankBehindTheEqualsSign) {
  EXPECT_EQ(iniFindings("[zelkad]\nip_addr= 10.1.2.3\n"),
            Lines{std::string("failed: the address \" 10.1.2.3\" in till.ini has a blank before or "
                              "behind it, so the library ignores it / ") +
                  kWriteIt});
  EXPECT_EQ(iniFindings("[zelkad]\nip_addr=10.1.2.3 \n").size(), 1u);
}

TEST(ExamineIni, NamesABlankBeforeTheKeyAndAnotherSpelling) {
  EXPECT_EQ(iniFindings("[zelkad]\n ip_addr=10.1.2.3\n"),
            Lines{std::string("failed: ip_addr in till.ini, line 2 is not found: there is a blank "
                              "before \"ip_addr\" / ") +
                  kWriteIt});
  EXPECT_EQ(iniFindings("[zelkad]\nIP_Addr=10.1.2.3\n"),
            Lines{std::string("failed: ip_addr in till.ini, line 2 is not found: it is written "
                              "\"IP_Addr\" instead of \"ip_addr\" / ") +
                  kWriteIt});
}

TEST(ExamineIni, NamesAWrongSection) {
  const std::string fix =
      " / Write it as \"ip_addr=10.1.2.3\" below a line \"[zelkad]\", without any blank.";
  EXPECT_EQ(iniFindings("[Zelkad]\nip_addr=10.1.2.3\n"),
            Lines{"failed: ip_addr in till.ini, line 2 is not found: it stands in the section "
                  "\"[Zelkad]\" instead of [zelkad]" +
                  fix});
  EXPECT_EQ(iniFindings("ip_addr=10.1.2.3\n"),
            Lines{"failed: ip_addr in till.ini, line 1 is not found: it stands before the line "
                  "[zelkad]" +
                  fix});
  EXPECT_EQ(iniFindings(" [zelkad]\nip_addr=10.1.2.3\n"),
            Lines{"failed: ip_addr in till.ini, line 1 is not found: there is a blank before or "
                  "behind [zelkad] / Take the blank out, so that the line is \"[zelkad]\"."});
}

TEST(ExamineIni, NamesAValueThatIsNoAddress) {
  const std::string fix = " / Write a dotted IPv4 address, as in \"ip_addr=192.168.1.20\".";
  EXPECT_EQ(iniFindings("[zelkad]\nip_addr=till-server\n"),
            Lines{"failed: the address \"till-server\" in till.ini is no IPv4 address, so the "
                  "library ignores it" +
                  fix});
  EXPECT_EQ(iniFindings("[zelkad]\nip_addr=\n"),
            Lines{"failed: ip_addr in till.ini has no value" + fix});
  EXPECT_EQ(iniFindings("[zelkad]\nip_addr\n"),
            Lines{"failed: ip_addr in till.ini has no value" + fix});
  EXPECT_EQ(iniFindings("[zelkad]\nip_addr=1.2.3.4:53264\n").size(), 1u);
}

TEST(ExamineIni, NamesAByteOrderMarkWhereItHarms) {
  const std::string fix = " / Save it as plain text (ANSI, or UTF-8 without BOM).";
  EXPECT_EQ(iniFindings("\xEF\xBB\xBF[zelkad]\nip_addr=10.1.2.3\n"),
            Lines{"failed: till.ini begins with a byte-order mark (UTF-8 with BOM), so the library "
                  "does not find [zelkad] in it" +
                  fix});
  EXPECT_EQ(
      iniFindings(std::string("\xFF\xFE[\0z\0", 6)),
      Lines{"failed: till.ini is in UTF-16, so the library does not find [zelkad] in it" + fix});
  EXPECT_EQ(address("\xEF\xBB\xBF; comment\n[zelkad]\nip_addr=10.1.2.3\n"), "10.1.2.3");
}

TEST(ExamineIni, WarnsOfALineThatDoesNothing) {
  EXPECT_EQ(iniFindings("[zelkad]\nip_addr=10.1.2.3\nip_addr =10.9.9.9\n"),
            (Lines{"fine: till.ini names the address 10.1.2.3",
                   "warning: ip_addr in till.ini, line 3 is not found: there is a blank before the "
                   "'=' / Write the line as \"ip_addr=10.9.9.9\", without any blank."}));
}

TEST(ExamineIni, NamesAnAddressUnderAnotherName) {
  EXPECT_EQ(iniFindings("[zelkad]\nip_adr=10.1.2.3\n"),
            Lines{std::string("failed: ip_addr in till.ini, line 2 is not found: it is written "
                              "\"ip_adr\" instead of \"ip_addr\" / ") +
                  kWriteIt});
  EXPECT_EQ(iniFindings("[zelkad]\nip_addr: 10.1.2.3\n"),
            Lines{std::string("failed: ip_addr in till.ini, line 2 is not found: there is a ':' "
                              "instead of the '=' / ") +
                  kWriteIt});
  EXPECT_EQ(iniFindings("[zelkad]\nip_addr=10.1.2.3\nbackup=10.1.2.4\n"),
            Lines{"fine: till.ini names the address 10.1.2.3"});
}

TEST(ExamineIni, TellsWhatZerosDoToAnAddress) {
  EXPECT_EQ(iniFindings("[zelkad]\nip_addr=192.168.010.003\n"),
            (Lines{"fine: till.ini names the address 192.168.010.003",
                   "failed: a number in the address 192.168.010.003 begins with 0, and so is read "
                   "as an octal number: it is another address / Write it without the zeros: "
                   "192.168.10.3."}));
  EXPECT_EQ(iniFindings("[zelkad]\nip_addr=10.0.0.007\n").size(), 1u);
}

TEST(ExamineIni, TellsThatResyncIsOn) {
  EXPECT_EQ(
      iniFindings("[zelkad]\r\nip_addr=10.1.2.3\r\nresync=1\r\n"),
      (Lines{"fine: till.ini names the address 10.1.2.3", "fine: till.ini switches resync on"}));
  EXPECT_EQ(iniFindings("[zelkad]\nip_addr=10.1.2.3\nresync=0\n").size(), 1u);
  EXPECT_EQ(iniFindings("[zelkad]\nip_addr=10.1.2.3\n;resync=1\n").size(), 1u);
}

TEST(ExamineIni, WarnsOfALineThatLeavesResyncOff) {
  for (const char* line : {"resync=yes", "resync = 1", "Resync=1", "resync=", "resync"}) {
    EXPECT_EQ(iniFindings(std::string("[zelkad]\nip_addr=10.1.2.3\n") + line + "\n"),
              (Lines{"fine: till.ini names the address 10.1.2.3",
                     std::string("warning: \"") + line +
                         "\" in till.ini, line 3 leaves resync off / Write \"resync=1\" below the "
                         "line \"[zelkad]\", without any blank."}))
        << line;
  }
  EXPECT_EQ(iniFindings("resync=1\n[zelkad]\nip_addr=10.1.2.3\n").size(), 2u) << "in no section";
}

TEST(ExamineIni, WarnsOfAFileWithoutTheKey) {
  for (const char* bytes : {"", "[zelkad]\n", "[zelkad]\n;ip_addr=10.1.2.3\n"}) {
    EXPECT_EQ(
        iniFindings(bytes),
        Lines{"warning: till.ini has no ip_addr in [zelkad] / Write two lines, without any "
              "blank: \"[zelkad]\" and \"ip_addr=192.168.1.20\" (the address of the service)."})
        << bytes;
  }
}

}  // namespace
}  // namespace tolvex::ctl
