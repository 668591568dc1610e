#include "printing/drain.h"

#include "service/result_codes.h"
#include "service/vco_client_api.h"

namespace tolvex {
namespace {

// The alignment of an image stays here: the service's command has none.
unsigned sendRecord(VcoClientApi& client, const PrintJobRecord& record, int printerType,
                    unsigned codeSoFar) {
  const char* const payload = record.payload.c_str();
  switch (record.kind) {
    case PrintJobKind::kTextByWidth:
      return client.printTextByPaperWidth(payload, record.param1, record.param2, printerType);
    case PrintJobKind::kText:
      return client.printText(payload, record.param1, printerType);
    case PrintJobKind::kImageFile:
      return client.printBmpFile(payload, record.param1, printerType);
    case PrintJobKind::kNone:
      break;
  }
  return codeSoFar;
}

// Emptied on every way out.
class ResetAtTheEnd {
 public:
  explicit ResetAtTheEnd(PrintJobBuffer& job) : job_(job) {}
  ~ResetAtTheEnd() { job_.reset(); }
  ResetAtTheEnd(const ResetAtTheEnd&) = delete;
  ResetAtTheEnd& operator=(const ResetAtTheEnd&) = delete;

 private:
  PrintJobBuffer& job_;
};

}  // namespace

unsigned drainPrintJob(VcoClientApi& client, int printerType) {
  PrintJobBuffer& queue = client.printJob();
  const ResetAtTheEnd reset(queue);
  PrintJobRecord record = queue.takeNext();
  if (record.kind == PrintJobKind::kNone) return client.keepAsLastError(result::kUnknown);
  unsigned code = result::kOk;
  for (; record.kind != PrintJobKind::kNone && code == result::kOk; queue.takeNext(record)) {
    code = sendRecord(client, record, printerType, code);
  }
  return client.keepAsLastError(code);
}

}  // namespace tolvex
