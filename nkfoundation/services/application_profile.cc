#include "nkfoundation/services/application_profile.h"

#include <atomic>
#include <string>

namespace profile {
namespace {

// Installed once by the host; read from any thread afterwards.
std::atomic<AApplicationProfile*> g_profile{nullptr};

}  // namespace

void SetApplicationProfile(AApplicationProfile* profile) { g_profile.store(profile); }

AApplicationProfile* GetAvailableProfile() {
  AApplicationProfile* profile = g_profile.load();
  return profile != nullptr && profile->bIsAvailable() ? profile : nullptr;
}

}  // namespace profile

namespace {

// Section and entry names compare without regard to ASCII case, as registry
// names do.
std::u16string Folded(std::u16string_view name) {
  std::u16string folded(name);
  for (char16_t& c : folded) {
    if (c >= u'A' && c <= u'Z') c = static_cast<char16_t>(c - u'A' + u'a');
  }
  return folded;
}

}  // namespace

int OApplicationProfile_Memory::iGetProfileInt(std::u16string_view section,
                                               std::u16string_view entry, int default_value) {
  const auto found = values_.find({Folded(section), Folded(entry)});
  return found == values_.end() ? default_value : found->second;
}

bool OApplicationProfile_Memory::bWriteProfileInt(std::u16string_view section,
                                                  std::u16string_view entry, int value) {
  values_[{Folded(section), Folded(entry)}] = value;
  return true;
}

bool OApplicationProfile_Memory::bHasEntry(std::u16string_view section,
                                           std::u16string_view entry) const {
  return values_.count({Folded(section), Folded(entry)}) != 0;
}
