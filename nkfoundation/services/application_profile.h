// The host application's profile: the integer settings it keeps by section
// and entry (in the registry, under the application's own key). The library
// reaches them only through the profile the host installs at start-up; with
// none installed, settings are neither read nor written.
#ifndef NKFOUNDATION_SERVICES_APPLICATION_PROFILE_H_
#define NKFOUNDATION_SERVICES_APPLICATION_PROFILE_H_

#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "nkfoundation/core/export.h"

class NKF_API AApplicationProfile {
 public:
  virtual ~AApplicationProfile() = default;

  // Whether the settings can be reached now. A desktop host answers false
  // while its application has no registry key: its profile would then be an
  // INI file, which the library leaves alone.
  virtual bool bIsAvailable() const = 0;
  // The stored value of `entry`, or `default_value` when there is none.
  virtual int iGetProfileInt(std::u16string_view section, std::u16string_view entry,
                             int default_value) = 0;
  // Stores `value` under `entry`; false when it could not be stored.
  virtual bool bWriteProfileInt(std::u16string_view section, std::u16string_view entry,
                                int value) = 0;
};

namespace profile {

// Installs the host's profile (not owned; null removes it). The host does
// this once at start-up, before any settings are exchanged.
NKF_API void SetApplicationProfile(AApplicationProfile* profile);
// The installed profile when it is available, otherwise null.
NKF_API AApplicationProfile* GetAvailableProfile();

}  // namespace profile

// A profile held in memory: for hosts without a registry (tools, tests) and
// as a stand-in while a host's real settings are not wanted. Names compare
// without regard to ASCII case, as in the registry.
class NKF_API OApplicationProfile_Memory : public AApplicationProfile {
 public:
  bool bIsAvailable() const override { return true; }
  int iGetProfileInt(std::u16string_view section, std::u16string_view entry,
                     int default_value) override;
  bool bWriteProfileInt(std::u16string_view section, std::u16string_view entry, int value) override;

  // Whether `entry` holds a value, for callers that must tell a stored value
  // from a default.
  bool bHasEntry(std::u16string_view section, std::u16string_view entry) const;

 private:
  // By section and entry, both folded to lower case.
  std::map<std::pair<std::u16string, std::u16string>, int> values_;
};

#endif  // NKFOUNDATION_SERVICES_APPLICATION_PROFILE_H_
