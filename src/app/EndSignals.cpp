#include "app/EndSignals.h"

#ifdef __linux__
#include <signal.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <initializer_list>
#endif

namespace tintbench::app {

#ifdef __linux__

namespace {

bool IsIgnored(int signal) {
  struct sigaction action {};
  return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

}  // namespace

EndSignals::EndSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    if (!IsIgnored(signal)) sigaddset(&signals, signal);
  }
  sigprocmask(SIG_BLOCK, &signals, nullptr);
  signal(SIGPIPE, SIG_IGN);
  descriptor_ = signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
}

EndSignals::~EndSignals() {
  if (descriptor_ >= 0) close(descriptor_);
}

void EndSignals::Take() const {
  signalfd_siginfo told{};
  while (read(descriptor_, &told, sizeof told) == sizeof told) {
  }
}

#else

EndSignals::EndSignals() = default;
EndSignals::~EndSignals() = default;
void EndSignals::Take() const {}

#endif

}  // namespace tintbench::app
