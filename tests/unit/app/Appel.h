// Calls ovelin-cli as a user's script would: a process with its own settings folder, status and both outputs.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/support/DossierEssai.h"

namespace essai {

struct Retour {
  int etat = -1;
  std::string sortie, erreurs;
  // Standard output as JSON; a discarded value when it isn't.
  [[nodiscard]] nlohmann::json Json() const { return nlohmann::json::parse(sortie, nullptr, false); }
};

// A folder for one test: settings, inputs and results. Removed behind it.
class Atelier {
 public:
  // ovelin-cli --config <folder> --lang fr --decimal . ARGUMENTS. `environnement`: "NAME=VALUE ..." before it.
  [[nodiscard]] Retour Appelle(const std::vector<std::string>& arguments,
                               const std::string& environnement = "") const;
  // The same from another folder than the test's.
  [[nodiscard]] Retour AppelleDans(const std::string& dossier, const std::vector<std::string>& arguments) const;
  [[nodiscard]] std::string Chemin(const std::string& nom) const { return dossier_.Chemin(nom); }
  std::string Ecrit(const std::string& nom, const std::string& octets) const;
  [[nodiscard]] static std::string Lit(const std::string& chemin);
  [[nodiscard]] std::vector<std::string> Fichiers() const;

 private:
  DossierEssai dossier_;
};

// A closed square of 40 mm with a hole of 10 mm across in its middle, and a text, in mm.
extern const std::string Carre;
// The smallest X of the cuts in a G-code text.
double GaucheDesCoupes(const std::string& nc);

std::string Exemple(const std::string& nom);  // samples/<nom>

}  // namespace essai
