// The printers over the API.
#include <algorithm>

#include "api_fixture.h"

namespace tolvex::sim {
namespace {

class PrinterRoutesTest : public ApiFixture {
 protected:
  nlohmann::json patchLabel(const std::string& body) {
    return json("PATCH", "/api/printers/Label", body);
  }
  std::string refuseLabel(const std::string& body) {
    return refusal("PATCH", "/api/printers/Label", body);
  }
  nlohmann::json patchTicket(const std::string& body) {
    return json("PATCH", "/api/printers/Ticket", body);
  }
  std::string refuseTicket(const std::string& body) {
    return refusal("PATCH", "/api/printers/Ticket", body);
  }
};

constexpr const char* kLabelPrinter =
    R"({"name":"Label","type":0,"result":2007,"text":"Print Head is Hot","faults":{"unplugged":false,)"
    R"("abnormal":false,"illegal-head":false,"out-of-paper":false,"hot":true,"busy":false},)"
    R"("paper":{"width_mm":60,"printable_mm":56,"left_mm":1000.5,"fed_mm":0},)"
    R"("stock":{"kind":"mark","label_mm":50,"gap_mm":3.125,"position_mm":1},)"
    R"("learnt":{"kind":"gap","label_mm":40,"gap_mm":3},"in_register":false,)"
    R"("calibrated":{"label_gap":false,"paper_end":false},)"
    R"("settings":{"paper-width":480,"gap-type":1,"direction":0,"text-wrap-mode":0,"left-margin":24,)"
    R"("right-margin":0,"auto-print":0,"paper-offset":0,"contrast":50,"print-speed":100,)"
    R"("rollback":0,"take-paper-sensor":0},"job":null})";

TEST_F(PrinterRoutesTest, ShowWhatAPatchMade) {
  EXPECT_EQ(call("PATCH", "/api/printers/Label",
                 R"({"faults":{"hot":true},"paper":{"left_mm":1000.5},)"
                 R"("stock":{"kind":"mark","label_mm":50,"gap_mm":3.125,"position_mm":1},)"
                 R"("settings":{"left-margin":24,"text-wrap-mode":0}})"),
            std::string("200 ") + kLabelPrinter);
  EXPECT_EQ(call("GET", "/api/printers/Label"), std::string("200 ") + kLabelPrinter);
  const auto all = json("GET", "/api/printers").at("printers");
  EXPECT_EQ(all.size(), 3U);
  EXPECT_EQ(all.at(0), nlohmann::json::parse(kLabelPrinter));
  EXPECT_EQ(all.at(1).at("stock"), nullptr);
  EXPECT_EQ(all.at(1).at("learnt"), nullptr);
  EXPECT_EQ(all.at(1).at("in_register"), true);
}

TEST_F(PrinterRoutesTest, ShowTheJobThatIsBeingPrinted) {
  ticket().printText("x", 24);
  EXPECT_EQ(json("GET", "/api/printers/Ticket").at("job"), 1);
  ticket().finishJob();
  EXPECT_EQ(json("GET", "/api/printers/Ticket").at("job"), nullptr);
  EXPECT_EQ(json("POST", "/api/printers/Third/tear").at("paper").at("fed_mm"), 0);
}

TEST_F(PrinterRoutesTest, KnowThePrinters) {
  EXPECT_EQ(refusal("GET", "/api/printers/Bon"),
            "404 there is no printer \"Bon\" | The printers are Label, Ticket, Third.");
  EXPECT_EQ(refusal("POST", "/api/printers/Bon/tear").substr(0, 3), "404");
  EXPECT_EQ(refusal("PATCH", "/api/printers/bon", "{}").substr(0, 3), "404");
}

TEST_F(PrinterRoutesTest, TakeEachFaultAndEachSettingWithinItsBounds) {
  for (const PrinterFaultRow& row : printerFaults()) {
    const std::string member = std::string("{\"faults\":{\"") + row.name + "\":";
    EXPECT_EQ(patchLabel(member + "true}}").at("faults").at(row.name), true);
    EXPECT_EQ(patchLabel(member + "false}}").at("faults").at(row.name), false);
    EXPECT_EQ(refuseLabel(member + "0}}"),
              std::string("400 in /faults: ") + row.name +
                  " is 0, but it has to be true or false | Send true or false, as in {\"" +
                  row.name + "\": true}.");
  }
  for (const SettingRow& row : printerSettings()) {
    const std::string member = std::string("{\"settings\":{\"") + row.name + "\":";
    EXPECT_EQ(patchTicket(member + std::to_string(row.smallest) + "}}").at("settings").at(row.name),
              row.smallest);
    EXPECT_NE(refuseTicket(member + std::to_string(row.largest + 1) + "}}")
                  .find(", but it has to be a whole number from " + std::to_string(row.smallest) +
                        " to " + std::to_string(row.largest)),
              std::string::npos);
    EXPECT_EQ(refuseTicket(member + std::to_string(row.smallest - 1) + "}}").substr(0, 3), "400");
    EXPECT_EQ(refuseTicket(member + "1.5}}").substr(0, 3), "400");
    patchTicket(member + std::to_string(row.initial) + "}}");
  }
}

TEST_F(PrinterRoutesTest, SettingsThatFitTogetherFitInAnyOrder) {
  const auto settings = [&](const std::string& body) {
    return json("PATCH", "/api/printers/Ticket", body).at("settings");
  };
  // The margins fit on the wide paper only, and the narrow one goes with small margins only.
  auto now = settings(R"({"settings":{"paper-width":560,"left-margin":300,"right-margin":150}})");
  EXPECT_EQ(now.at("left-margin"), 300);
  now = settings(R"({"settings":{"paper-width":128,"left-margin":0,"right-margin":0}})");
  EXPECT_EQ(now.at("paper-width"), 128);
  EXPECT_EQ(refusal("PATCH", "/api/printers/Ticket",
                    R"({"faults":{"busy":true},"settings":{"contrast":60,"left-margin":100}})"),
            "400 in /settings: left-margin can not be 100 on Ticket | Send a paper width that the "
            "printer takes, and margins that leave 64 dots between them.");
  now = json("GET", "/api/printers/Ticket");
  EXPECT_EQ(now.at("settings").at("contrast"), 50);
  EXPECT_EQ(now.at("faults").at("busy"), false);
}

TEST_F(PrinterRoutesTest, TakePaperAndLabelsWithinTheirBounds) {
  const auto paper = [&](const std::string& left) {
    return patchLabel("{\"paper\":{\"left_mm\":" + left + "}}").at("paper").at("left_mm");
  };
  EXPECT_EQ(paper("1000000"), 1000000);
  EXPECT_EQ(paper("0"), 0);
  EXPECT_EQ(paper("null"), nullptr);
  EXPECT_EQ(refuseLabel(R"({"paper":{"left_mm":-1}})"),
            "400 in /paper: left_mm is -1, but it has to be a number from 0 to 1000000, or null | "
            "Send a number from 0 to 1000000, or null, as in {\"left_mm\": 50000}.");
  EXPECT_EQ(refuseLabel(R"({"paper":{"left_mm":1000000.1}})").substr(0, 3), "400");
  EXPECT_EQ(refuseLabel(R"({"paper":{"width_mm":80}})"),
            "400 in /paper: \"width_mm\" is no member that can be set of the paper of a printer | "
            "Send an object with any of left_mm.");
  const auto stock = [&](const std::string& body) {
    return patchLabel("{\"stock\":" + body + "}").at("stock").dump();
  };
  EXPECT_EQ(stock(R"({"label_mm":300,"gap_mm":30,"position_mm":329})"),
            R"({"gap_mm":30,"kind":"gap","label_mm":300,"position_mm":329})");
  // Where the head is goes on, if it can.
  EXPECT_EQ(stock(R"({"label_mm":5,"gap_mm":1,"kind":"continuous"})"),
            R"({"gap_mm":1,"kind":"continuous","label_mm":5,"position_mm":0})");
  EXPECT_EQ(refuseLabel(R"({"stock":{"position_mm":6}})"),
            "400 in /stock: position_mm is 6, but label and gap are 6 mm long together | Send less "
            "than 6, as in {\"position_mm\": 0}.");
  EXPECT_EQ(refuseLabel(R"({"stock":{"label_mm":4.9}})").substr(0, 24), "400 in /stock: label_mm ");
  EXPECT_EQ(refuseLabel(R"({"stock":{"label_mm":300.1}})").substr(0, 3), "400");
  EXPECT_EQ(refuseLabel(R"({"stock":{"gap_mm":0.9}})").substr(0, 3), "400");
  EXPECT_EQ(refuseLabel(R"({"stock":{"gap_mm":30.1}})").substr(0, 3), "400");
  EXPECT_EQ(refuseLabel(R"({"stock":{"position_mm":-1}})").substr(0, 3), "400");
  EXPECT_EQ(
      refuseLabel(R"({"stock":{"kind":"round"}})"),
      "400 in /stock: kind is \"round\", but it has to be one of gap, mark, continuous | Send "
      "one of gap, mark, continuous, as in {\"kind\": \"gap\"}.");
}

TEST_F(PrinterRoutesTest, ARollHasNoLabels) {
  EXPECT_EQ(
      refusal("PATCH", "/api/printers/Ticket", R"({"stock":{"label_mm":40}})"),
      "400 Ticket prints on a roll without labels and has no stock | Leave stock out, or send "
      "it to a label printer.");
  EXPECT_EQ(refusal("POST", "/api/printers/Ticket/load-paper", R"({"stock":{"label_mm":40}})")
                .substr(0, 3),
            "400");
}

TEST_F(PrinterRoutesTest, LoadPaper) {
  patchLabel(R"({"paper":{"left_mm":0}})");
  EXPECT_EQ(json("GET", "/api/printers/Label").at("result"), 2006);
  auto now = json("POST", "/api/printers/Label/load-paper",
                  R"({"left_mm":50000,"stock":{"label_mm":60}})");
  EXPECT_EQ(now.at("result"), 0);
  EXPECT_EQ(now.at("paper").at("left_mm"), 50000);
  EXPECT_EQ(now.at("stock").at("label_mm"), 60);
  EXPECT_EQ(now.at("in_register"), false);
  now = json("POST", "/api/printers/Label/load-paper");
  EXPECT_EQ(now.at("paper").at("left_mm"), nullptr);
  EXPECT_EQ(refusal("POST", "/api/printers/Label/load-paper", R"({"left_mm":"full"})").substr(0, 3),
            "400");
}

TEST_F(PrinterRoutesTest, PaperMendsTheFaultOfHavingNone) {
  EXPECT_EQ(patchLabel(R"({"faults":{"out-of-paper":true}})").at("result"), 2006);
  EXPECT_EQ(patchLabel(R"({"paper":{"left_mm":0}})").at("result"), 2006);
  auto now = patchLabel(R"({"paper":{"left_mm":100}})");
  EXPECT_EQ(now.at("result"), 0);
  EXPECT_EQ(now.at("faults").at("out-of-paper"), false);
  EXPECT_EQ(now.at("paper").at("left_mm"), 100);
  // A patch that says both means both.
  now = patchLabel(R"({"faults":{"out-of-paper":true},"paper":{"left_mm":50}})");
  EXPECT_EQ(now.at("faults").at("out-of-paper"), true);
  EXPECT_EQ(now.at("paper").at("left_mm"), 50);
  now = patchLabel(R"({"faults":{"out-of-paper":false},"paper":{"left_mm":0}})");
  EXPECT_EQ(now.at("faults").at("out-of-paper"), false);
  EXPECT_EQ(now.at("paper").at("left_mm"), 0);
}

TEST_F(PrinterRoutesTest, Calibrate) {
  patchLabel(R"({"stock":{"label_mm":50}})");
  const auto now = json("POST", "/api/printers/Label/calibrate");
  EXPECT_EQ(now.at("calibrated").at("label_gap"), true);
  EXPECT_EQ(now.at("learnt").at("label_mm"), 50);
  EXPECT_EQ(now.at("in_register"), true);
  EXPECT_EQ(refusal("POST", "/api/printers/Ticket/calibrate"),
            "409 Ticket refuses to calibrate the label gap: " +
                std::string(message(ResultCode::PrtDrvReturnError)) +
                " | Choose a printer with labels.");
  patchLabel(R"({"faults":{"busy":true}})");
  EXPECT_EQ(json("GET", "/api/printers/Label").at("result"), 2005);
  const HttpResponse refused = api_.call("POST", "/api/printers/Label/calibrate");
  EXPECT_EQ(refused.status, 409);
  EXPECT_EQ(nlohmann::json::parse(refused.body).at("result"), 2005);
}

TEST_F(PrinterRoutesTest, SayWhatKeepsThemFromCalibrating) {
  const auto refuse = [&](const std::string& patch) {
    patchLabel(patch);
    const std::string text = refusal("POST", "/api/printers/Label/calibrate");
    return text.substr(std::min(text.find(" | "), text.size()));
  };
  const std::string patch = "PATCH /api/printers/Label ";
  EXPECT_EQ(refuse(R"({"stock":{"kind":"mark"}})"),
            " | Set the gap type to 2, which finds marks: " + patch +
                R"({"settings": {"gap-type": 2}}; or put labels with gaps in.)");
  EXPECT_EQ(refuse(R"({"settings":{"gap-type":0}})"),
            " | Set the gap type to 2, which finds marks: " + patch +
                R"({"settings": {"gap-type": 2}}; or put labels with gaps in.)");
  EXPECT_EQ(refuse(R"({"stock":{"kind":"gap"},"settings":{"gap-type":2}})"),
            " | Set the gap type to 1, which finds gaps: " + patch +
                R"({"settings": {"gap-type": 1}}; or put labels with marks in.)");
  EXPECT_EQ(refuse(R"({"stock":{"kind":"continuous"},"settings":{"gap-type":1}})"),
            " | Put labels in, since continuous stock has no gap to be found: " + patch +
                R"({"stock": {"kind": "gap"}}.)");
  EXPECT_EQ(refuse(R"({"paper":{"left_mm":0}})"),
            " | Put paper in: POST /api/printers/Label/load-paper.");
  EXPECT_EQ(refuse(R"({"paper":{"left_mm":null},"faults":{"hot":true}})"),
            " | Mend its faults: PATCH /api/printers/Label.");
  EXPECT_EQ(
      json("PATCH", "/api/printers/Label", R"({"faults":{"hot":false},"stock":{"kind":"gap"}})")
          .at("result"),
      0);
  EXPECT_EQ(json("POST", "/api/printers/Label/calibrate").at("calibrated").at("label_gap"), true);
}

TEST_F(PrinterRoutesTest, TearPaperOff) {
  ticket().printText("x", 24);
  EXPECT_EQ(json("POST", "/api/printers/Ticket/tear").at("job"), nullptr);
  EXPECT_EQ(json("GET", "/api/jobs/1").at("end"), "torn");
}

}  // namespace
}  // namespace tolvex::sim
