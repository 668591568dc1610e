#include "doctor/threshold_examination.h"

#include <gtest/gtest.h>

namespace tolvex::ctl {
namespace {

using Findings = std::vector<std::string>;

Findings thresholdFindings(const std::string& bytes) {
  Findings lines;
  for (const Finding& finding : examineThresholds(bytes, "NLog.ini")) {
    lines.push_back(std::string(wordOf(finding.mark)) + ": " + finding.text);
  }
  return lines;
}

const char kNothing[] = "info: NLog.ini sets nothing: the modules log from level 5 on";

TEST(ExamineThresholds, TellsWhatIsSet) {
  EXPECT_EQ(
      thresholdFindings("[any]\n; comment\n# comment\n Socket = 1 \r\nDLL=2\nNLog=4"),
      (Findings{"info: DLL=2 in NLog.ini logs every request and reply, with the texts of receipts",
                "info: NLog=4 in NLog.ini", "info: Socket=1 in NLog.ini"}));
  EXPECT_EQ(thresholdFindings(""), Findings{kNothing});
}

TEST(ExamineThresholds, WarnsWhereTheLogStaysSilent) {
  EXPECT_EQ(
      thresholdFindings("DLL=7\nSocket=6"),
      (Findings{"warning: DLL=7 in NLog.ini keeps failures and calls out of the log, which may "
                "stay empty",
                "warning: Socket=6 in NLog.ini keeps failures (level 5) out of the log"}));
}

TEST(ExamineThresholds, SaysWhyALineIsIgnored) {
  const std::string level =
      " is ignored: the level has to be a number from 1 to 7 but 5, or a negative one";
  EXPECT_EQ(
      thresholdFindings("DLL=0\nDLL=8\nDLL=much\nDLL=5\nDLL\n=3\nDLL="),
      (Findings{"warning: NLog.ini, line 1: \"DLL=0\"" + level,
                "warning: NLog.ini, line 2: \"DLL=8\"" + level,
                "warning: NLog.ini, line 3: \"DLL=much\"" + level,
                "warning: NLog.ini, line 4: \"DLL=5\" is ignored: 5 is what every module has "
                "anyway, and the file can not set it",
                "warning: NLog.ini, line 5: \"DLL\" is ignored: it has no '='",
                "warning: NLog.ini, line 6: \"=3\" is ignored: it names no module",
                "warning: NLog.ini, line 7: \"DLL=\" is ignored: it has no level", kNothing}));
}

TEST(ExamineThresholds, KnowsTheModules) {
  EXPECT_EQ(thresholdFindings("dll=2"),
            Findings{"warning: dll=2 in NLog.ini has no effect: there is no module of this name"});
}

TEST(ExamineThresholds, TellsTwentyIgnoredLinesAndCountsTheRest) {
  std::string bytes;
  for (int i = 0; i < 1000; ++i) bytes += "nonsense\n";
  const Findings lines = thresholdFindings(bytes);
  ASSERT_EQ(lines.size(), 22u);
  EXPECT_EQ(lines[20], "warning: NLog.ini has 980 more lines that are ignored");
}

}  // namespace
}  // namespace tolvex::ctl
