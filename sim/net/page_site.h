// The page's files, beside the API.
#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "base/embedded_file.h"
#include "net/web.h"

namespace tolvex::sim {

/// Answers / with web/index.html and /NAME with web/NAME of the files; /api and all below it is
/// answered by the API.
class PageSite : public WebSite {
 public:
  /// Both must outlive the site.
  PageSite(const std::vector<EmbeddedFile>& files, WebSite& api) : files_(files), api_(api) {}

  void answer(const HttpRequest& request, std::function<void(HttpResponse)> respond) override;
  std::unique_ptr<LiveFeed> openFeed(const HttpRequest& request) override;

 private:
  const EmbeddedFile* find(std::string_view path) const;
  HttpResponse page(const HttpRequest& request) const;

  const std::vector<EmbeddedFile>& files_;
  WebSite& api_;
};

}  // namespace tolvex::sim
