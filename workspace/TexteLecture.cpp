#include "workspace/TexteLecture.h"

#include <functional>

#include "core/Textes.h"
#include "core/Traduction.h"

namespace ovelin {

namespace {

using pathwerk::RapportLecture;

constexpr const char* SectionEcartes = "Ecartes";  // kinds of what was left out, under their own names
constexpr const char* EnMots = "_mot";             // behind the name of a kind: what a reader of no such files says

std::string Suppose(const pathwerk::AvisLecture& avis) {
  const auto connu = TexteAvis(avis.Numero);
  if (!connu) return "";
  return Traduire(*connu) + (avis.Detail.empty() ? "" : " " + avis.Detail);
}

// A kind that is a word of the format has no key and stays as it is.
std::string Genre(const std::string& genre) { return Traduire(SectionEcartes, genre); }

std::string Mot(const std::string& genre) {
  const std::string cle = genre + EnMots;
  std::string mot = Traduire(SectionEcartes, cle);
  return mot == cle ? Genre(genre) : mot;
}

std::string EnLigne(const RapportLecture& rapport, const std::function<std::string(const std::string&)>& nomme) {
  std::string texte;
  const auto ajoute = [&texte](const std::string& morceau) { texte += (texte.empty() ? "" : ", ") + morceau; };
  for (const pathwerk::AvisLecture& avis : rapport.Suppose) {
    if (const std::string dit = Suppose(avis); !dit.empty()) ajoute(dit);
  }
  std::string ecartes;
  for (const auto& [genre, nombre] : rapport.Ignores) {
    ecartes += (ecartes.empty() ? " " : ", ") + nomme(genre) + " " + std::to_string(nombre);
  }
  if (!ecartes.empty()) ajoute(Traduire(Textes::Ecartes) + ecartes);
  return texte;
}

}  // namespace

std::string TexteLecture(const RapportLecture& rapport) { return EnLigne(rapport, Genre); }

std::string PhraseLecture(const RapportLecture& rapport) { return EnLigne(rapport, Mot); }

std::string DetailsLecture(const RapportLecture& rapport, const std::string& fichier) {
  std::string texte = fichier;
  if (!rapport.Ignores.empty()) texte += "\n\n" + Traduire(Textes::Ecartes);
  for (const auto& [genre, nombre] : rapport.Ignores) {
    const std::string mot = Mot(genre);
    texte += "\n  " + mot + (mot == genre ? "" : " (" + genre + ")") + " : " + std::to_string(nombre);
    if (const auto ligne = rapport.PremieresLignes.find(genre); ligne != rapport.PremieresLignes.end()) {
      texte += ", " + Traduire(Textes::PremiereLigne) + " " + std::to_string(ligne->second);
    }
  }
  std::string supposes;
  for (const pathwerk::AvisLecture& avis : rapport.Suppose) {
    if (const std::string dit = Suppose(avis); !dit.empty()) supposes += "\n  " + dit;
  }
  if (!supposes.empty()) texte += "\n\n" + Traduire(Textes::Supposes) + supposes;
  return texte;
}

}  // namespace ovelin
