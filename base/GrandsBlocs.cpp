#include "base/GrandsBlocs.h"

#include <cstdint>
#include <cstdlib>
#include <new>

#if __has_include(<sys/mman.h>)
#include <sys/mman.h>
#endif

// The sanitizers have an `operator new` of their own, which knows more of a block than this one.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define OVELIN_NEW_DU_SYSTEME 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define OVELIN_NEW_DU_SYSTEME 1
#endif
#endif

namespace base {

PagesGrandes PagesDe(void* bloc, std::size_t octets) {
  constexpr std::size_t Page = std::size_t{2} << 20;  // bytes of a large page
  const auto avant = static_cast<std::size_t>(-reinterpret_cast<std::uintptr_t>(bloc) % Page);
  if (octets < avant + Page) return {};
  return {static_cast<char*>(bloc) + avant, (octets - avant) / Page * Page};
}

void AnnonceGrandBloc(void* bloc, std::size_t octets) {
#ifdef MADV_HUGEPAGE
  const PagesGrandes pages = PagesDe(bloc, octets);
  if (pages.octets > 0) madvise(pages.debut, pages.octets, MADV_HUGEPAGE);
#else
  static_cast<void>(bloc), static_cast<void>(octets);
#endif
}

}  // namespace base

#ifndef OVELIN_NEW_DU_SYSTEME

// Replaces the library's own, which takes its blocks from the same place.
void* operator new(std::size_t octets) {
  for (;;) {
    if (void* const bloc = std::malloc(octets > 0 ? octets : 1)) {
      if (octets >= base::GrandBloc) base::AnnonceGrandBloc(bloc, octets);
      return bloc;
    }
    const std::new_handler secours = std::get_new_handler();
    if (secours == nullptr) throw std::bad_alloc();
    secours();
  }
}

void operator delete(void* bloc) noexcept { std::free(bloc); }
void operator delete(void* bloc, std::size_t) noexcept { std::free(bloc); }

#endif
