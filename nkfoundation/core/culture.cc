#include "nkfoundation/core/culture.h"

#include <atomic>

namespace culture {
namespace {

// Read from any thread that formats text; written by the host's UI thread.
std::atomic<Language> current_language{kEnglish};

}  // namespace

Language GetCurrentCulture() { return current_language.load(std::memory_order_relaxed); }

void SetCurrentCulture(Language language) {
  current_language.store(language, std::memory_order_relaxed);
}

}  // namespace culture
