// The weighing exports.
#include "api/exports.h"

#include "api/call_frame.h"
#include "api/context.h"
#include "log/nlog.h"
#include "service/reply.h"
#include "service/reply_copy.h"
#include "service/result_codes.h"
#include "service/vco_client_api.h"
#include "weighing/records.h"

using namespace tolvex;

namespace {

// The longest reply that the reads take, in bytes.
constexpr unsigned kReadSize = 1024;

struct TareBuffer {
  char text[kTareTextSize + 1] = {};
};

// These applications keep their own account of the tare and pass buffers they want left alone.
bool keepsItsBuffer(const VcoClientApi& client) {
  return client.getClientName() == "Kelvarin" || client.getClientName() == "Lumidesk";
}

void handTareOver(const VcoClientApi& client, const TareBuffer& tare, char* reply) {
  if (!keepsItsBuffer(client)) boundedCopy(reply, tare.text, kTareTextSize);
}

const char* name(const VcoClientApi* client) { return client->getClientName().c_str(); }

bool isWeightReply(unsigned code) {
  return code == result::kOk || code == result::kUnderLoad || code == result::kOverLoad ||
         code == result::kWeightNotStable || code == result::kInvalidWeight;
}

}  // namespace

int read_baseinfo(char* record) {
  return guarded(kVerdictOfException, [&] {
    Reply reply;
    VcoClientApi* const client = libraryClient();
    NLog* const log = NLog::GetInstance();
    if (record == nullptr) {
      NLog::Log(log, kModuleDll, kLevelFailure, 368, "[read_baseinfo] Input param is NULL");
      return kExportFailed;
    }
    NLog::Log(log, kModuleDll, kLevelTrace, 371, "[%s][read_baseinfo] Enter", name(client));
    const unsigned code = client->readBaseInfo(reply, kReadSize);
    const int verdict = code == result::kOk ? FormatBaseInfo(reply, record) : kExportFailed;
    NLog::Log(log, kModuleDll, kLevelTrace, 376, "[%s][read_baseinfo] End, %d,%s", name(client),
              verdict, reply.raw());
    return verdict;
  });
}

int read_standard(char* record) {
  return guarded(kVerdictOfException, [&] {
    Reply reply;
    VcoClientApi* const client = libraryClient();
    if (record == nullptr) {
      NLog::Log(NLog::GetInstance(), kModuleDll, kLevelFailure, 388,
                "[read_standard] Input param is NULL");
      return kExportFailed;
    }
    const unsigned code = client->readWeight(reply, kReadSize);
    if (!isWeightReply(code)) {
      NLog::Log(NLog::GetInstance(), kModuleDll, kLevelFailure, 401, "[%s][read_standard] Err:%d",
                name(client), static_cast<int>(code));
      return kExportFailed;
    }
    return WeightInfo(reply, highResolutionWeights(), record);
  });
}

int send_zero(void) {
  return guarded(kVerdictOfException, [] {
    VcoClientApi* const client = libraryClient();
    NLog* const log = NLog::GetInstance();
    NLog::Log(log, kModuleDll, kLevelTrace, 412, "[%s][send_zero] Enter", name(client));
    const unsigned code = client->setZero();
    if (code != result::kOk) {
      NLog::Log(log, kModuleDll, kLevelFailure, 415, "[send_zero] Err:%d", static_cast<int>(code));
      return kExportFailed;
    }
    NLog::Log(log, kModuleDll, kLevelTrace, 418, "[%s][send_zero] OK", name(client));
    return kExportOk;
  });
}

int send_pre_tare(char* text) {
  return guarded(kVerdictOfException, [&] {
    VcoClientApi* const client = libraryClient();
    NLog* const log = NLog::GetInstance();
    if (text == nullptr) {
      NLog::Log(log, kModuleDll, kLevelFailure, 430, "[send_pre_tare] Input param is NULL");
      return kExportFailed;
    }
    NLog::Log(log, kModuleDll, kLevelTrace, 433, "[%s][send_pre_tare] Enter %s", name(client),
              text);
    TareBuffer tare;  // empty: the caller's text goes no further, and the tare is cleared
    const unsigned code = client->setPresetTare(tare.text, kTareTextSize);
    if (code != result::kOk) {
      NLog::Log(log, kModuleDll, kLevelFailure, 438, "[send_pre_tare] Err:%d",
                static_cast<int>(code));
      return kExportFailed;
    }
    handTareOver(*client, tare, text);
    NLog::Log(log, kModuleDll, kLevelTrace, 445, "[%s][send_pre_tare] OK", name(client));
    return kExportOk;
  });
}

int set_tare_bykey(char* reply) {
  return guarded(kVerdictOfException, [&] {
    VcoClientApi* const client = libraryClient();
    NLog* const log = NLog::GetInstance();
    NLog::Log(log, kModuleDll, kLevelTrace, 456, "[%s][set_tare_bykey] Enter", name(client));
    if (reply == nullptr) {
      NLog::Log(log, kModuleDll, kLevelFailure, 459, "[set_tare_bykey] Input param is NULL");
      return kExportFailed;
    }
    TareBuffer tare;
    const unsigned code = client->setTare(tare.text, kTareTextSize);
    if (code != result::kOk) {
      NLog::Log(log, kModuleDll, kLevelFailure, 465, "[set_tare_bykey] Err:%d",
                static_cast<int>(code));
      return kExportFailed;
    }
    handTareOver(*client, tare, reply);
    NLog::Log(log, kModuleDll, kLevelTrace, 472, "[%s][set_tare_bykey] OK", name(client));
    return kExportOk;
  });
}

int send_tare(char* reply) {
  return guarded(kVerdictOfException, [&] {
    VcoClientApi* const client = libraryClient();
    NLog::Log(NLog::GetInstance(), kModuleDll, kLevelTrace, 478, "[%s][send_tare] Enter",
              name(client));
    return set_tare_bykey(reply);
  });
}

int clear_tare(char* reply) {
  return guarded(kVerdictOfException, [&] {
    VcoClientApi* const client = libraryClient();
    NLog* const log = NLog::GetInstance();
    NLog::Log(log, kModuleDll, kLevelTrace, 489, "[%s][clear_tare] Enter", name(client));
    if (reply == nullptr) {
      NLog::Log(log, kModuleDll, kLevelFailure, 492, "[clear_tare] Input param is NULL");
      return kExportFailed;
    }
    TareBuffer tare;
    const unsigned code = client->clearTare(tare.text, kTareTextSize);
    if (code != result::kOk) {
      NLog::Log(log, kModuleDll, kLevelFailure, 498, "[clear_tare] Err:%d", static_cast<int>(code));
      return kExportFailed;
    }
    handTareOver(*client, tare, reply);
    NLog::Log(log, kModuleDll, kLevelTrace, 505, "[%s][clear_tare] OK", name(client));
    return kExportOk;
  });
}

int getLCVersion(char* buffer, unsigned int size) {
  return guarded(kCodeOfException, [&] {
    VcoClientApi* const client = libraryClient();
    return static_cast<int>(client->getLCVersion(buffer, size));
  });
}

int setOverloadAlarm(unsigned int enable) {
  return guarded(kCodeOfException, [&] {
    return static_cast<int>(libraryClient()->setOverloadAlarm(static_cast<int>(enable)));
  });
}

int sendRawCmdToLC(const char* command, const char* parameters, char* reply, unsigned int size,
                   unsigned int wait) {
  return guarded(kCodeOfException, [&] {
    VcoClientApi* const client = libraryClient();
    return static_cast<int>(client->sendRawCmdToLC(command, parameters, reply, size, wait));
  });
}

int getHighResWeightMode(void) { return highResolutionWeights() ? 1 : 0; }

int setHighResWeightMode(int on) {
  setHighResolutionWeights(on != 0);
  return 0;
}
