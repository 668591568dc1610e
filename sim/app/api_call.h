// A scenario's calls, carried out by the API.
#pragma once

#include "scenario/api_call.h"

namespace tolvex::sim {

class Api;

ApiAnswer callApi(Api& api, const ApiCall& call);

}  // namespace tolvex::sim
