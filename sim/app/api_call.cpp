#include "app/api_call.h"

#include <utility>

#include "control/api.h"

namespace tolvex::sim {

ApiAnswer callApi(Api& api, const ApiCall& call) {
  HttpResponse response = api.call(call.method, call.path, call.body);
  return {response.status, std::move(response.body)};
}

}  // namespace tolvex::sim
