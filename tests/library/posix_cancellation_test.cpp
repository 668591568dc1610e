// An application that cancels a thread while it is inside a call.
#include <pthread.h>

#include <thread>

#include "support/library_test.h"

namespace tolvex::test {
namespace {

struct Cancellation : ServiceTest {
  static void* callIn(void* test) {
    auto* const self = static_cast<Cancellation*>(test);
    pthread_setcancelstate(PTHREAD_CANCEL_ENABLE, nullptr);
    self->result = send_zero();
    pthread_testcancel();
    self->wentOn = true;
    return nullptr;
  }
  int result = 0;
  bool wentOn = false;
};

TEST_F(Cancellation, TakesEffectWhenTheCallIsOver) {
  host.call(getLastErrCode);
  ASSERT_TRUE(service.weighing().hasAccepted(1));
  service.weighing().staysSilent();
  pthread_t thread;
  ASSERT_EQ(pthread_create(&thread, nullptr, callIn, this), 0);
  while (service.requests().empty()) std::this_thread::yield();
  pthread_cancel(thread);
  service.weighing().sends(kOk);
  void* ended = nullptr;
  ASSERT_EQ(pthread_join(thread, &ended), 0);
  EXPECT_EQ(ended, PTHREAD_CANCELED);
  EXPECT_EQ(result, TOLVEX_OK);
  EXPECT_FALSE(wentOn);

  service.answers(kOk);
  EXPECT_EQ(host.call(send_zero), TOLVEX_OK) << "the lock was left";
}

}  // namespace
}  // namespace tolvex::test
