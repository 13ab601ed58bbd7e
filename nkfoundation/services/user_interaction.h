// UserInteractionRequest: a question or notice for the user, and the
// interaction enumerations.
#ifndef NKFOUNDATION_SERVICES_USER_INTERACTION_H_
#define NKFOUNDATION_SERVICES_USER_INTERACTION_H_

#include <string>

#include "nkfoundation/core/export.h"
#include "nkfoundation/core/uuid.h"

namespace interaction {

// What kind of question or notice a request is.
enum RequestType : int {
  kInformation = 0,
  kWarning = 1,
  kError = 2,
  kQuestion = 3,
};

// How much the user must care: a front end may leave out requests above the
// verbosity the user has chosen.
enum VerbosityLevel : int {
  kEssential = 0,
  kNormal = 1,
  kDetailed = 2,
};

// The user's answer. Nobody asked (no front end installed) is 2.
enum ResultType : int {
  kConfirmed = 0,
  kCancelled = 1,
  kNotAsked = 2,
};

}  // namespace interaction

// Texts are resource keys (title, buttons) or the message itself. A request
// with a persistence identifier lets the front end remember the answer; with
// "persist confirm only" it remembers only a confirmation.
class NKF_API UserInteractionRequest {
 public:
  UserInteractionRequest(std::u16string title_key, std::u16string message, interaction::RequestType type,
                         bool single_button, std::u16string confirm_button_key, std::u16string cancel_button_key,
                         Uuid persistence_uuid, bool persist_confirm_only, interaction::VerbosityLevel verbosity);

  const std::u16string& GetTitleKey() const { return title_key_; }
  const std::u16string& GetMessageW() const { return message_; }
  const std::u16string& GetConfirmButtonKey() const { return confirm_button_key_; }
  const std::u16string& GetCancelButtonKey() const { return cancel_button_key_; }
  interaction::RequestType GetRequestType() const { return type_; }
  // Only the confirm button is offered.
  bool IsSingleButton() const { return single_button_; }
  bool GetIsPersistConfirmOnly() const { return persist_confirm_only_; }
  const Uuid& GetPersistenceUuid() const { return persistence_uuid_; }
  interaction::VerbosityLevel GetVerbosityLevel() const { return verbosity_; }

 private:
  std::u16string title_key_;
  std::u16string message_;
  std::u16string confirm_button_key_;
  std::u16string cancel_button_key_;
  Uuid persistence_uuid_;
  bool single_button_;
  bool persist_confirm_only_;
  interaction::RequestType type_;
  interaction::VerbosityLevel verbosity_;
};

#endif  // NKFOUNDATION_SERVICES_USER_INTERACTION_H_
