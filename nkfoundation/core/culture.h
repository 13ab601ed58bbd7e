// The user interface language that culture-dependent texts follow.
#ifndef NKFOUNDATION_CORE_CULTURE_H_
#define NKFOUNDATION_CORE_CULTURE_H_

#include "nkfoundation/core/export.h"

namespace culture {

// Culture-dependent literals are small tables indexed by this value.
enum Language : int {
  kKeyForm = 0,  // untranslated key texts, beginning "@@"
  kEnglish = 1,
  kGerman = 2,
};

// The language the host application has chosen; English until it sets one.
NKF_API Language GetCurrentCulture();
// Called by the host when the user interface language changes.
NKF_API void SetCurrentCulture(Language language);

}  // namespace culture

#endif  // NKFOUNDATION_CORE_CULTURE_H_
