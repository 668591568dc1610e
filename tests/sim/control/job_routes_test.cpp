// Jobs, their paper and the traffic over the API.
#include "api_fixture.h"
#include "paper/render.h"

namespace tolvex::sim {
namespace {

class JobRoutesTest : public ApiFixture {
 protected:
  /// The numbers of what a listing has: "1 2 5".
  std::string numbers(const std::string& path, const std::string& what) {
    const auto listing = json("GET", path);
    std::string list;
    for (const auto& item : listing.at(what)) {
      list += (list.empty() ? "" : " ") + item.at("number").dump();
    }
    return list;
  }
  std::string jobs(const std::string& query) { return numbers("/api/jobs" + query, "jobs"); }
  std::string traffic(const std::string& query) {
    return numbers("/api/traffic" + query, "exchanges");
  }
};

TEST_F(JobRoutesTest, ShowAJob) {
  ticket().printText("a\nb", 24);
  ticket().printImage(Bitmap(8, 8));
  wallTime_ += Milliseconds(1500);
  ticket().finishJob();
  EXPECT_EQ(call("GET", "/api/jobs/1"),
            R"(200 {"number":1,"printer":"Ticket","finished":true,"length_mm":9,"end":"open",)"
            R"("continues":false,"revision":3,"began_at":"2026-11-21T11:47:01.123Z",)"
            R"("changed_at":"2026-11-21T11:47:02.623Z","lines":2,"images":1})");
  print(ticket(), "c");
  EXPECT_EQ(json("GET", "/api/jobs/2").at("continues"), true);
  ticket().cut(100);
  EXPECT_EQ(json("GET", "/api/jobs/2").at("end"), "cut");
}

TEST_F(JobRoutesTest, BeganWhenTheyDidAlsoAfterAReset) {
  ticket().printText("lost", 24);
  wallTime_ += Milliseconds(1000);
  json("POST", "/api/reset");
  EXPECT_EQ(jobs(""), "");
  wallTime_ += Milliseconds(2000);
  print(ticket(), "anew");
  EXPECT_EQ(json("GET", "/api/jobs/1").at("began_at"), "2026-11-21T11:47:04.123Z");
  EXPECT_EQ(json("GET", "/api/jobs/1").at("changed_at"), "2026-11-21T11:47:04.123Z");
}

TEST_F(JobRoutesTest, ListThoseAfterANumberOrTheNewestOnes) {
  for (int i = 0; i < 3; ++i) print(ticket(), "x");
  for (int i = 0; i < 3; ++i) print(label(), "x");
  EXPECT_EQ(jobs(""), "1 2 3 4 5 6");
  EXPECT_EQ(jobs("?limit=2"), "5 6");
  EXPECT_EQ(jobs("?after=1&limit=2"), "2 3");
  EXPECT_EQ(jobs("?after=6"), "");
  EXPECT_EQ(jobs("?printer=Label"), "4 5 6");
  EXPECT_EQ(jobs("?printer=Label&after=0&limit=1"), "4");
  EXPECT_EQ(refusal("GET", "/api/jobs?printer=Bon"),
            "404 there is no printer \"Bon\" | The printers are Label, Ticket, Third.");
}

TEST_F(JobRoutesTest, KnowWhichJobsAreKept) {
  print(ticket(), "x");
  const std::string remedy = " | GET /api/jobs lists those that are kept.";
  EXPECT_EQ(refusal("GET", "/api/jobs/2"), "404 there is no job \"2\"" + remedy);
  EXPECT_EQ(refusal("GET", "/api/jobs/0"), "404 there is no job \"0\"" + remedy);
  EXPECT_EQ(refusal("GET", "/api/jobs/999999999999999").substr(0, 3), "404");
  EXPECT_EQ(refusal("GET", "/api/jobs/9999999999999999"),
            "404 there is no job \"9999999999999999\" | Send a number of digits only, at most 15.");
  EXPECT_EQ(refusal("GET", "/api/jobs/-1/paper.svg").substr(0, 3), "404");
}

TEST_F(JobRoutesTest, AreForgottenUnlessTheyAreBeingPrinted) {
  ticket().printText("open", 24);
  print(label(), "done");
  EXPECT_EQ(call("DELETE", "/api/jobs"), R"(200 {"oldest":1,"newest":2,"count":1})");
  ticket().finishJob();
  EXPECT_EQ(call("DELETE", "/api/jobs"), R"(200 {"oldest":3,"newest":2,"count":0})");
  EXPECT_EQ(jobs(""), "");
}

TEST_F(JobRoutesTest, HandOutTheirPaper) {
  print(ticket(), "Hello");
  const Paper& paper = ticket().job()->paper();
  HttpResponse response = api_.call("GET", "/api/jobs/1/paper.svg");
  EXPECT_EQ(response.contentType, "image/svg+xml");
  EXPECT_EQ(response.body, svgOf(paper));
  EXPECT_TRUE(response.headers.empty());
  EXPECT_EQ(api_.call("GET", "/api/jobs/1/paper.svg?form=strip").body, svgOf(paper, Form::Strip));
  EXPECT_EQ(api_.call("GET", "/api/jobs/1/paper.svg?form=picture").body, svgOf(paper));
  response = api_.call("GET", "/api/jobs/1/paper.txt?download=1");
  EXPECT_EQ(response.contentType, "text/plain; charset=utf-8");
  EXPECT_EQ(response.body, "Hello\n");
  using Headers = std::vector<std::pair<std::string, std::string>>;
  EXPECT_EQ(response.headers,
            (Headers{{"Content-Disposition", "attachment; filename=\"job-0001-Ticket.txt\""}}));
  response = api_.call("GET", "/api/jobs/1/paper.svg?download=1&form=strip");
  EXPECT_EQ(response.headers,
            (Headers{{"Content-Disposition", "attachment; filename=\"job-0001-Ticket.svg\""}}));
  EXPECT_TRUE(api_.call("GET", "/api/jobs/1/paper.txt?download=0").headers.empty());
}

TEST_F(JobRoutesTest, ShowTheirPaperAsItIsNow) {
  print(ticket(), "Hello");
  const auto picture = [this] { return api_.call("GET", "/api/jobs/1/paper.svg").body; };
  EXPECT_EQ(picture(), svgOf(ticket().job()->paper()));
  EXPECT_EQ(picture(), svgOf(ticket().job()->paper()));
  ticket().feed(10);
  EXPECT_EQ(picture(), svgOf(ticket().job()->paper()));
  json("POST", "/api/reset");
  print(ticket(), "Anew");
  EXPECT_EQ(picture(), svgOf(ticket().job()->paper()));
}

TEST_F(JobRoutesTest, AreNotDrawnForAClientThatHasLeft) {
  print(ticket(), "Hello");
  const auto askAndLeave = [this] {
    HttpRequest request;
    request.method = "GET";
    request.path = "/api/jobs/1/paper.svg";
    request.clientLeft = [] { return true; };
    int status = 0;
    api_.answer(request, [&status](const HttpResponse& response) { status = response.status; });
    return status;
  };
  EXPECT_EQ(askAndLeave(), 408);
  // What is drawn already costs nothing.
  EXPECT_EQ(api_.call("GET", "/api/jobs/1/paper.svg").status, 200);
  EXPECT_EQ(askAndLeave(), 200);
}

TEST_F(JobRoutesTest, KnowTheirExchanges) {
  print(ticket(), "x");
  exchange("printtext", Half::Printing, 1);
  exchange("getweight");
  exchange("beginPrint", Half::Printing, 1);
  EXPECT_EQ(numbers("/api/jobs/1/exchanges", "exchanges"), "1 3");
  EXPECT_EQ(numbers("/api/jobs/1/exchanges?after=1", "exchanges"), "3");
  EXPECT_EQ(refusal("GET", "/api/jobs/2/exchanges").substr(0, 3), "404");
}

TEST_F(JobRoutesTest, ShowAnExchange) {
  simulation_.traffic.complete(beginExchange("\xffx", Half::Printing, 4), Outcome::Reset,
                               std::chrono::microseconds(1500));
  EXPECT_EQ(
      call("GET", "/api/traffic/1"),
      "200 {\"number\":1,\"port\":\"printing\",\"connection\":3,\"client\":\"127.0.0.1:40112\","
      "\"time\":\"2026-11-21T11:47:01.123Z\",\"duration_ms\":1.5,\"request\":"
      "\"{\\\"cmd\\\":\\\"\xEF\xBF\xBDx\\\"}\",\"reply\":\"{\\\"result\\\":\\\"0\\\"}\","
      "\"request_bytes\":12,\"reply_bytes\":14,\"command\":\"\xEF\xBF\xBDx\",\"known\":true,"
      "\"result\":0,\"result_text\":\"OK\",\"job\":4,\"outcome\":\"reset\",\"faults\":[]}");
  TrafficEntry entry;
  entry.faults = {"no-answer", "delay"};
  simulation_.traffic.add(entry);
  const auto second = json("GET", "/api/traffic/2");
  EXPECT_EQ(second.at("result"), nullptr);
  EXPECT_EQ(second.at("result_text"), nullptr);
  EXPECT_EQ(second.at("job"), nullptr);
  EXPECT_EQ(second.at("outcome"), "pending");
  EXPECT_EQ(second.at("faults"), nlohmann::json({"no-answer", "delay"}));
  EXPECT_EQ(refusal("GET", "/api/traffic/3"),
            "404 there is no exchange \"3\" | GET /api/traffic lists the latest ones.");
}

TEST_F(JobRoutesTest, ListTheTrafficThatIsLookedFor) {
  exchange("getweight");
  exchange("printtext", Half::Printing, 1);
  exchange("getweight", Half::Printing);
  exchange("getweight");
  EXPECT_EQ(traffic(""), "1 2 3 4");
  EXPECT_EQ(traffic("?command=getweight"), "1 3 4");
  EXPECT_EQ(traffic("?command=getweight&port=weighing"), "1 4");
  EXPECT_EQ(traffic("?job=1"), "2");
  EXPECT_EQ(traffic("?after=1&limit=2"), "2 3");
  EXPECT_EQ(json("GET", "/api/traffic?after=1&limit=2").at("more"), true);
  EXPECT_EQ(json("GET", "/api/traffic?after=1&limit=3").at("more"), false);
  EXPECT_EQ(traffic("?limit=2"), "3 4");
  EXPECT_EQ(json("GET", "/api/traffic?limit=2").at("more"), true);
  EXPECT_EQ(json("GET", "/api/traffic?limit=4").at("more"), false);
}

TEST_F(JobRoutesTest, AListingOfTrafficIsOnlySoLong) {
  for (int i = 0; i < 600; ++i) exchange(std::string(TrafficLog::kMaxTextBytes, 'x'));
  const auto listing = json("GET", "/api/traffic?limit=1000&after=0");
  EXPECT_LT(listing.at("exchanges").size(), 300U);
  EXPECT_GT(listing.at("exchanges").size(), 200U);
  EXPECT_EQ(listing.at("more"), true);
}

TEST_F(JobRoutesTest, ForgetTheTraffic) {
  exchange("getweight");
  exchange("getweight");
  const auto traffic = json("DELETE", "/api/traffic");
  EXPECT_EQ(traffic.at("oldest"), 3);
  EXPECT_EQ(traffic.at("newest"), 2);
  EXPECT_EQ(call("GET", "/api/traffic"), R"(200 {"exchanges":[],"more":false})");
}

}  // namespace
}  // namespace tolvex::sim
