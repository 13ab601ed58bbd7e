// The desktop application's profile in the registry: integer settings under
// HKEY_CURRENT_USER\Software\<company>\<application>\<section>.
#ifndef NKFOUNDATION_SERVICES_WIN32_APPLICATION_PROFILE_REGISTRY_H_
#define NKFOUNDATION_SERVICES_WIN32_APPLICATION_PROFILE_REGISTRY_H_

#include <string>
#include <string_view>

#include "nkfoundation/core/export.h"
#include "nkfoundation/services/application_profile.h"

// Keeps integers as REG_DWORD values the way the framework's application
// does once its registry key is set, so a host can hand the library the
// settings it already has (or stand in for the framework where there is
// none). Available while both the company (the application's registry key)
// and the application name are set; names are UTF-16 and go through the
// wide registry calls.
class NKF_API OApplicationProfile_Registry : public AApplicationProfile {
 public:
  OApplicationProfile_Registry(std::u16string company, std::u16string application);

  bool bIsAvailable() const override;
  // The entry's DWORD as an int; `default_value` when the section or entry
  // is missing or the entry is not a four-byte REG_DWORD.
  int iGetProfileInt(std::u16string_view section, std::u16string_view entry, int default_value) override;
  // Creates the section's key when needed and stores a REG_DWORD.
  bool bWriteProfileInt(std::u16string_view section, std::u16string_view entry, int value) override;

  // Software\<company>\<application>\<section>, below HKEY_CURRENT_USER.
  std::u16string oStrSectionKey(std::u16string_view section) const;

 private:
  std::u16string company_;
  std::u16string application_;
};

#endif  // NKFOUNDATION_SERVICES_WIN32_APPLICATION_PROFILE_REGISTRY_H_
