#include "net/page_site.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "base/printable.h"
#include "net/http_error.h"

namespace tolvex::sim {

namespace {

constexpr std::size_t kLongestShownPath = 100;
constexpr std::string_view kFolder = "web/";
constexpr std::string_view kApi = "/api";

struct ContentType {
  std::string_view ending;
  const char* type;
};

constexpr std::array<ContentType, 5> kContentTypes{{{".html", "text/html; charset=utf-8"},
                                                    {".css", "text/css; charset=utf-8"},
                                                    {".js", "text/javascript; charset=utf-8"},
                                                    {".svg", "image/svg+xml"},
                                                    {".json", "application/json"}}};

bool endsWith(std::string_view text, std::string_view ending) {
  return text.size() >= ending.size() && text.substr(text.size() - ending.size()) == ending;
}

const char* contentTypeFor(std::string_view name) {
  for (const auto& [ending, type] : kContentTypes) {
    if (endsWith(name, ending)) return type;
  }
  return "application/octet-stream";
}

bool isOfApi(std::string_view path) {
  return path.substr(0, kApi.size()) == kApi &&
         (path.size() == kApi.size() || path[kApi.size()] == '/');
}

}  // namespace

void PageSite::answer(const HttpRequest& request, std::function<void(HttpResponse)> respond) {
  if (isOfApi(request.path)) return api_.answer(request, std::move(respond));
  respond(page(request));
}

std::unique_ptr<LiveFeed> PageSite::openFeed(const HttpRequest& request) {
  return api_.openFeed(request);
}

const EmbeddedFile* PageSite::find(std::string_view path) const {
  const std::string_view name = path == "/" ? "index.html" : path.substr(1);
  const auto found = std::find_if(files_.begin(), files_.end(), [name](const EmbeddedFile& file) {
    return file.name.substr(0, kFolder.size()) == kFolder &&
           file.name.substr(kFolder.size()) == name;
  });
  return found == files_.end() ? nullptr : &*found;
}

HttpResponse PageSite::page(const HttpRequest& request) const {
  const EmbeddedFile* file = find(request.path);
  if (file == nullptr) {
    return httpError(404, "there is nothing at " + printable(request.path, kLongestShownPath),
                     "The page is at /, the API at /api; GET /api lists its paths.");
  }
  if (request.method != "GET") {
    HttpResponse refusal =
        httpError(405, "a page can only be read", "Use GET, or the API at /api.");
    refusal.headers.emplace_back("Allow", "GET, HEAD");
    return refusal;
  }
  HttpResponse response;
  response.contentType = contentTypeFor(file->name);
  response.body = file->bytes;
  return response;
}

}  // namespace tolvex::sim
