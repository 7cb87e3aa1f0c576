// A folder of a test alone, gone afterwards. On the standard library alone, so that the tests of every folder have
// it.
#pragma once

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

namespace essai {

class DossierEssai {
 public:
  DossierEssai() {
    chemin_ = (std::filesystem::temp_directory_path() / "ovelin-test-XXXXXX").string();
    if (::mkdtemp(chemin_.data()) == nullptr) std::abort();
  }
  ~DossierEssai() {
    std::error_code erreur;
    std::filesystem::remove_all(chemin_, erreur);
  }
  DossierEssai(const DossierEssai&) = delete;
  DossierEssai& operator=(const DossierEssai&) = delete;

  [[nodiscard]] const std::string& Chemin() const { return chemin_; }
  [[nodiscard]] std::string Chemin(const std::string& nom) const { return chemin_ + "/" + nom; }
  [[nodiscard]] bool Vide() const { return std::filesystem::is_empty(chemin_); }

 private:
  std::string chemin_;
};

}  // namespace essai
