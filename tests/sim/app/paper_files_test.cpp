#include "app/paper_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>
#include <vector>

#include "paper/render.h"

namespace tolvex::sim {
namespace {

namespace fs = std::filesystem;

// A folder of each test's own below the one that the tests run in.
class PaperFilesTest : public ::testing::Test {
 protected:
  PaperFilesTest() { fs::remove_all(root_); }
  ~PaperFilesTest() override {
    std::error_code ignored;
    fs::remove_all(root_, ignored);
  }

  static Job job(int number, const std::string& text) {
    Job job(number, "Ticket", {640, 576});
    job.add({TextItem{text, 24, 0}});
    job.finish();
    return job;
  }

  std::vector<std::string> files() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(fs::u8path(directory_))) {
      names.push_back(entry.path().filename().u8string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  std::string pathOf(const std::string& name) const {
    return (fs::u8path(directory_) / name).u8string();
  }

  std::string read(const std::string& name) const {
    std::ifstream stream(fs::u8path(pathOf(name)), std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }

  // A file where a folder is wanted stops everybody, the administrator too.
  void block() {
    fs::create_directories(root_);
    std::ofstream(fs::u8path(directory_)) << "in the way";
  }
  void unblock() { fs::remove(fs::u8path(directory_)); }

  PaperFiles makeFiles() {
    return PaperFiles(directory_, {"Label", "Ticket"},
                      [this](const std::string& text) { warnings_.push_back(text); });
  }

  fs::path root_ = fs::u8path(std::string("paper_files_test.") +
                              ::testing::UnitTest::GetInstance()->current_test_info()->name());
  std::string directory_ = root_.u8string() + "/Käse 苹果";
  std::vector<std::string> warnings_;
};

TEST_F(PaperFilesTest, TheFolderIsThereFromTheStart) {
  makeFiles();
  EXPECT_EQ(files(), std::vector<std::string>{});
  EXPECT_EQ(warnings_, std::vector<std::string>{});
}

TEST_F(PaperFilesTest, TheJobsOfEarlierRunsAreRemovedAndNothingElse) {
  const std::vector<std::string> others = {"job-0001-Ticket.png", "job-0001-Till.svg",
                                           "job-1-Ticket.svg", "logo.svg", "notes.txt"};
  fs::create_directories(fs::u8path(directory_));
  for (const std::string& name : others) std::ofstream(fs::u8path(pathOf(name))) << "mine";
  fs::create_directories(fs::u8path(pathOf("job-0007-Label.svg")));
  makeFiles().save(job(1, "x"));
  makeFiles().save(job(12345, "x"));
  std::vector<std::string> expected = others;
  expected.insert(expected.end(),
                  {"job-0007-Label.svg", "job-12345-Ticket.svg", "job-12345-Ticket.txt"});
  std::sort(expected.begin(), expected.end());
  EXPECT_EQ(files(), expected);
  makeFiles();
  expected = others;
  expected.push_back("job-0007-Label.svg");
  std::sort(expected.begin(), expected.end());
  EXPECT_EQ(files(), expected);
  EXPECT_EQ(warnings_, std::vector<std::string>{});
}

TEST_F(PaperFilesTest, AJobBecomesAPictureAndAText) {
  PaperFiles paperFiles = makeFiles();
  const Job first = job(1, "Käse");
  EXPECT_EQ(paperFiles.save(first), pathOf("job-0001-Ticket.svg"));
  EXPECT_EQ(paperFiles.save(job(12345, "x")), pathOf("job-12345-Ticket.svg"));
  EXPECT_EQ(files(), (std::vector<std::string>{"job-0001-Ticket.svg", "job-0001-Ticket.txt",
                                               "job-12345-Ticket.svg", "job-12345-Ticket.txt"}));
  EXPECT_EQ(read("job-0001-Ticket.txt"), "Käse\n");
  EXPECT_EQ(read("job-0001-Ticket.svg"), svgOf(first.paper()));
}

TEST_F(PaperFilesTest, AChangedJobReplacesItsFiles) {
  PaperFiles paperFiles = makeFiles();
  Job changing = job(1, "Total");
  paperFiles.save(changing);
  changing.cut(70);
  EXPECT_EQ(paperFiles.save(changing), pathOf("job-0001-Ticket.svg"));
  EXPECT_EQ(read("job-0001-Ticket.txt"), plainTextOf(changing.paper()));
  EXPECT_EQ(read("job-0001-Ticket.svg"), svgOf(changing.paper()));
  EXPECT_EQ(files().size(), 2U);
}

TEST_F(PaperFilesTest, ARestartLeavesNothingOfWhatWasPrinted) {
  PaperFiles paperFiles = makeFiles();
  for (int number = 1; number <= 3; ++number) paperFiles.save(job(number, "before"));
  std::ofstream(fs::u8path(pathOf("notes.txt"))) << "mine";
  paperFiles.restart();
  EXPECT_EQ(files(), std::vector<std::string>{"notes.txt"});
  paperFiles.save(job(1, "after"));
  EXPECT_EQ(files(),
            (std::vector<std::string>{"job-0001-Ticket.svg", "job-0001-Ticket.txt", "notes.txt"}));
  EXPECT_EQ(read("job-0001-Ticket.txt"), "after\n");
  fs::remove_all(root_);
  paperFiles.restart();
  EXPECT_EQ(files(), std::vector<std::string>{});
  EXPECT_EQ(warnings_, std::vector<std::string>{});
}

TEST_F(PaperFilesTest, AFolderThatIsRemovedIsMadeAgain) {
  PaperFiles paperFiles = makeFiles();
  fs::remove_all(root_);
  EXPECT_EQ(paperFiles.save(job(1, "x")), pathOf("job-0001-Ticket.svg"));
  EXPECT_EQ(read("job-0001-Ticket.txt"), "x\n");
}

TEST_F(PaperFilesTest, AFailureIsReportedOnceUntilAJobIsSaved) {
  block();
  PaperFiles paperFiles = makeFiles();
  ASSERT_EQ(warnings_.size(), 1U);
  EXPECT_EQ(warnings_[0].find("cannot create the folder " + directory_ + ": "), 0U) << warnings_[0];
  EXPECT_EQ(paperFiles.save(job(1, "x")), "");
  EXPECT_EQ(paperFiles.save(job(2, "x")), "");
  EXPECT_EQ(warnings_.size(), 1U);
  unblock();
  EXPECT_EQ(paperFiles.save(job(3, "x")), pathOf("job-0003-Ticket.svg"));
  fs::remove_all(root_);
  block();
  EXPECT_EQ(paperFiles.save(job(4, "x")), "");
  EXPECT_EQ(warnings_.size(), 2U);
}

TEST_F(PaperFilesTest, AFailureComesWithItsCauseAndAdvice) {
  PaperFiles paperFiles = makeFiles();
  // The cause is the one that anybody gets who writes there.
  const std::string blocked = pathOf("job-0001-Ticket.txt.tmp");
  fs::create_directories(fs::u8path(blocked + "/in the way"));
  errno = 0;
  EXPECT_FALSE(std::ofstream(fs::u8path(blocked)));
  const std::string cause = std::generic_category().message(errno);
  EXPECT_EQ(paperFiles.save(job(1, "x")), "");
  EXPECT_EQ(warnings_, (std::vector<std::string>{"cannot write " + pathOf("job-0001-Ticket.txt") +
                                                 ": " + cause +
                                                 ". Jobs are printed all the same, but not kept. "
                                                 "Choose another folder with --paper-dir."}));
}

TEST_F(PaperFilesTest, APictureThatCanNotBeWrittenOrReplacedLeavesNoText) {
  for (const char* blocked : {"job-0001-Ticket.svg.tmp", "job-0001-Ticket.svg"}) {
    warnings_.clear();
    PaperFiles paperFiles = makeFiles();
    fs::create_directories(fs::u8path(pathOf(blocked) + "/in the way"));
    EXPECT_EQ(paperFiles.save(job(1, "x")), "");
    ASSERT_EQ(warnings_.size(), 1U);
    EXPECT_EQ(warnings_[0].find("cannot write " + pathOf("job-0001-Ticket.svg") + ": "), 0U)
        << warnings_[0];
    EXPECT_EQ(files(), std::vector<std::string>{blocked});
    fs::remove_all(fs::u8path(pathOf(blocked)));
  }
}

TEST_F(PaperFilesTest, AChangeThatCanNotBeWrittenLeavesTheJobAsItWas) {
  PaperFiles paperFiles = makeFiles();
  Job changing = job(1, "Total");
  paperFiles.save(changing);
  const std::string text = read("job-0001-Ticket.txt");
  const std::string picture = read("job-0001-Ticket.svg");
  fs::create_directories(fs::u8path(pathOf("job-0001-Ticket.svg.tmp") + "/in the way"));
  changing.cut(70);
  EXPECT_EQ(paperFiles.save(changing), "");
  EXPECT_EQ(read("job-0001-Ticket.txt"), text);
  EXPECT_EQ(read("job-0001-Ticket.svg"), picture);
}

}  // namespace
}  // namespace tolvex::sim
