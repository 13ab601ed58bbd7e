#include "nkfoundation/services/user_interaction.h"

#include <utility>

UserInteractionRequest::UserInteractionRequest(std::u16string title_key, std::u16string message,
                                               interaction::RequestType type, bool single_button,
                                               std::u16string confirm_button_key, std::u16string cancel_button_key,
                                               Uuid persistence_uuid, bool persist_confirm_only,
                                               interaction::VerbosityLevel verbosity)
    : title_key_(std::move(title_key)),
      message_(std::move(message)),
      confirm_button_key_(std::move(confirm_button_key)),
      cancel_button_key_(std::move(cancel_button_key)),
      persistence_uuid_(std::move(persistence_uuid)),
      single_button_(single_button),
      persist_confirm_only_(persist_confirm_only),
      type_(type),
      verbosity_(verbosity) {}
