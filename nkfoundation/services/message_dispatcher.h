// OMessageDispatcher: the way out of the library for events and questions
// meant for the user.
#ifndef NKFOUNDATION_SERVICES_MESSAGE_DISPATCHER_H_
#define NKFOUNDATION_SERVICES_MESSAGE_DISPATCHER_H_

#include <memory>

#include "nkfoundation/core/export.h"
#include "nkfoundation/services/user_interaction.h"

// One process-wide dispatcher receives every event: the window dispatcher of
// the desktop application, which turns events into window messages, or the
// managed front end's own subclass. This base does nothing and answers -1
// (no receiver) to every dispatch. The host installs its dispatcher at
// start-up, before other threads dispatch; the instance is not locked.
class NKF_API OMessageDispatcher {
 public:
  enum MessageDispatcherType : int {
    kWindow = 0,   // window messages to the desktop application
    kManaged = 1,  // the managed front end
    kNone = 2,     // this do-nothing base
  };

  OMessageDispatcher() = default;
  virtual ~OMessageDispatcher() = default;

  // Event `msg`, with the default data, waiting for the receiver (Sync) or
  // not (Async). Returns the receiver's result.
  virtual int DispatchMessage_Sync(unsigned int msg);
  virtual int DispatchMessage_Async(unsigned int msg);
  // Event `msg` with `data`. `both` also reaches the main receiver when a
  // temporary one is set.
  virtual int DispatchMessageData_Sync(unsigned int msg, int data, bool both);
  virtual int DispatchMessageData_Async(unsigned int msg, int data, bool both);
  virtual int GetDefaultMessageData();
  virtual void SetDefaultMessageData(int data);
  virtual void SetVerbosityLevel(interaction::RequestType level);
  virtual int GetDispatcherType();
  virtual interaction::ResultType RequestUserInteraction(const UserInteractionRequest& request);

  // The installed dispatcher; a do-nothing base one until the host installs
  // its own, so never empty.
  static std::shared_ptr<OMessageDispatcher> GetInstance();
  // Installs `dispatcher`; an empty pointer installs a do-nothing one again.
  static void SetInstance(const std::shared_ptr<OMessageDispatcher>& dispatcher);
};

#endif  // NKFOUNDATION_SERVICES_MESSAGE_DISPATCHER_H_
