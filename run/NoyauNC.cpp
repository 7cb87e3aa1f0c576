#include "run/NoyauNC.h"

#include "core/Cadence.h"
#include "run/LigneNC.h"

namespace ovelin {

namespace {

bool VitesseValable(double v) { return v > 0 && v <= 1e9; }

void EcritEntete(std::string& texte, EtatNC& etat, const CadreNC& cadre) {
  for (const std::string& ligne : cadre.presentation) EcritCommentaireNC(texte, etat, ligne);
  EcritCommentaireNC(texte, etat, "");
  EcritCommentaireNC(texte, etat, cadre.unites);
  EcritMotNC(texte, etat, "G71");
  EcritCommentaireNC(texte, etat, cadre.absolu);
  EcritCommentaireNC(texte, etat, cadre.broche);
  EcritMotNC(texte, etat, "M03");
}

void EcritFin(std::string& texte, EtatNC& etat, const CadreNC& cadre) {
  EcritCommentaireNC(texte, etat, cadre.arret);
  EcritMotNC(texte, etat, "M05");
  EcritCommentaireNC(texte, etat, cadre.fin);
  EcritMotNC(texte, etat, "M02");
}

}  // namespace

bool VitessesValables(const Reglages& reglages, const TableMachine& table) {
  return VitesseValable(reglages.Vitesse_Mat_H) && VitesseValable(reglages.Vitesse_Mat_V) &&
         VitesseValable(table.VitesseMaxX) && VitesseValable(table.VitesseMaxY) &&
         VitesseValable(table.VitesseMaxZ);
}

std::string ComposeNC(std::span<const Deplacement> lignes, const CadreNC& cadre, EcritureNC& resultat) {
  EtatNC etat;
  const auto montre = [&] {
    resultat.LongueurNC = etat.LongueurNC;
    resultat.TempsNC = etat.TempsNC;
    resultat.lignes = etat.lignes;
  };
  std::string texte;
  texte.reserve(4096 + lignes.size() * 24);
  EcritEntete(texte, etat, cadre);
  Cadence cadence;
  for (const Deplacement& ligne : lignes.subspan(lignes.empty() ? 0 : 1)) {
    EcritLigneNC(texte, etat, ligne.Vitesse, ligne.X, ligne.Y, ligne.Z);
    ++resultat.deplacements;
    if (cadence.Echeance()) {
      montre();
      cadence.Laisse();
    }
  }
  EcritFin(texte, etat, cadre);
  montre();
  return texte;
}

}  // namespace ovelin
