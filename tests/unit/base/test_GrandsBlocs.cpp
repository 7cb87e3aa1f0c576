#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

#include "base/GrandsBlocs.h"

namespace {

constexpr std::size_t Mo = std::size_t{1} << 20;

void* A(std::uintptr_t place) { return reinterpret_cast<void*>(place); }

// What the system notes of the mapping that holds a place: the letters behind "VmFlags:"; "" where it tells none.
std::string DrapeauxDe(const void* place) {
  std::ifstream cartes("/proc/self/smaps");
  std::string ligne;
  bool dedans = false;
  const auto p = reinterpret_cast<std::uintptr_t>(place);
  while (std::getline(cartes, ligne)) {
    std::size_t tiret = 0;
    const bool tete = ligne.find('-') < ligne.find(' ');
    if (tete) {
      const auto debut = std::stoull(ligne, &tiret, 16);
      dedans = debut <= p && p < std::stoull(ligne.substr(tiret + 1), nullptr, 16);
    } else if (dedans && ligne.starts_with("VmFlags:")) {
      return ligne.substr(8) + " ";
    }
  }
  return "";
}

}  // namespace

TEST(PagesDe, A_block_that_begins_with_a_large_page_is_taken_from_there) {
  const base::PagesGrandes pages = base::PagesDe(A(6 * Mo), 5 * Mo);
  EXPECT_EQ(pages.debut, A(6 * Mo));
  EXPECT_EQ(pages.octets, 4 * Mo);
}

TEST(PagesDe, Only_whole_large_pages_inside_of_a_block_are_taken) {
  const base::PagesGrandes pages = base::PagesDe(A(6 * Mo + 16), 6 * Mo);
  EXPECT_EQ(pages.debut, A(8 * Mo));
  EXPECT_EQ(pages.octets, 4 * Mo);
}

TEST(PagesDe, A_block_that_holds_no_large_page_gives_none) {
  EXPECT_EQ(base::PagesDe(A(6 * Mo + 16), 4 * Mo - 17).octets, 0U);
  EXPECT_EQ(base::PagesDe(A(6 * Mo + 16), 4 * Mo - 16).octets, 2 * Mo);
}

TEST(GrandsBlocs, The_pages_of_a_large_vector_are_announced) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  GTEST_SKIP() << "the sanitizer allocates";
#endif
  if (!std::ifstream("/sys/kernel/mm/transparent_hugepage/enabled")) GTEST_SKIP() << "no large pages here";
  const std::vector<char> grand(32 * Mo, 'x');
  EXPECT_NE(DrapeauxDe(grand.data() + 16 * Mo).find(" hg "), std::string::npos);
}
