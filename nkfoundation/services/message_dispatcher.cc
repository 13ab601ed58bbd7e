#include "nkfoundation/services/message_dispatcher.h"

namespace {

// Built on first use, so a dispatch from another static initialiser finds it.
std::shared_ptr<OMessageDispatcher>& Installed() {
  static std::shared_ptr<OMessageDispatcher> dispatcher = std::make_shared<OMessageDispatcher>();
  return dispatcher;
}

}  // namespace

int OMessageDispatcher::DispatchMessage_Sync(unsigned int /*msg*/) { return -1; }
int OMessageDispatcher::DispatchMessage_Async(unsigned int /*msg*/) { return -1; }
int OMessageDispatcher::DispatchMessageData_Sync(unsigned int /*msg*/, int /*data*/, bool /*both*/) { return -1; }
int OMessageDispatcher::DispatchMessageData_Async(unsigned int /*msg*/, int /*data*/, bool /*both*/) { return -1; }
int OMessageDispatcher::GetDefaultMessageData() { return -1; }
void OMessageDispatcher::SetDefaultMessageData(int /*data*/) {}
void OMessageDispatcher::SetVerbosityLevel(interaction::RequestType /*level*/) {}
int OMessageDispatcher::GetDispatcherType() { return kNone; }

interaction::ResultType OMessageDispatcher::RequestUserInteraction(const UserInteractionRequest& /*request*/) {
  return interaction::kNotAsked;
}

std::shared_ptr<OMessageDispatcher> OMessageDispatcher::GetInstance() { return Installed(); }

void OMessageDispatcher::SetInstance(const std::shared_ptr<OMessageDispatcher>& dispatcher) {
  Installed() = dispatcher ? dispatcher : std::make_shared<OMessageDispatcher>();
}
