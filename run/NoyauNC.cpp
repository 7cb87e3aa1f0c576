#include "run/NoyauNC.h"

#include "base/ComposeEnMorceaux.h"
#include "core/Cadence.h"
#include "core/Coeurs.h"
#include "run/ArcsDuPlan.h"
#include "run/Dialectes.h"
#include "run/LigneDialecte.h"
#include "run/LigneNC.h"

namespace ovelin {

namespace {

bool VitesseValable(double v) { return v > 0 && v <= 1e9; }

// Brings to light how far the writing has come, and lets events run.
class SuiviNC {
 public:
  SuiviNC(const EtatNC& etat, EcritureNC& resultat) : etat_(etat), resultat_(resultat) {}
  void Avance(long rangs) {
    resultat_.deplacements += rangs;
    if (!cadence_.Echeance()) return;
    Montre();
    cadence_.Laisse();
  }
  void Montre() {
    resultat_.LongueurNC = etat_.LongueurNC;
    resultat_.TempsNC = etat_.TempsNC;
    resultat_.lignes = etat_.lignes;
  }

 private:
  const EtatNC& etat_;
  EcritureNC& resultat_;
  Cadence cadence_;
};

// --- the program's own dialect

void EcritEntete(std::string& texte, EtatNC& etat, const CadreNC& cadre, const Dialecte& d) {
  for (const std::string& ligne : cadre.presentation) EcritCommentaireNC(texte, etat, ligne);
  EcritCommentaireNC(texte, etat, "");
  EcritCommentaireNC(texte, etat, cadre.unites);
  EcritMotNC(texte, etat, d.unites);
  EcritCommentaireNC(texte, etat, cadre.absolu);
  EcritCommentaireNC(texte, etat, cadre.broche);
  EcritMotNC(texte, etat, d.broche);
}

void EcritFin(std::string& texte, EtatNC& etat, const CadreNC& cadre, const Dialecte& d) {
  EcritCommentaireNC(texte, etat, cadre.arret);
  EcritMotNC(texte, etat, d.arret);
  EcritCommentaireNC(texte, etat, cadre.fin);
  for (const std::string& ligne : d.fin) EcritMotNC(texte, etat, ligne);
}

void EcritLigne(std::string& texte, EtatNC& etat, const Deplacement& ligne) {
  EcritLigneNC(texte, etat, ligne.Vitesse, ligne.X, ligne.Y, ligne.Z);
}
void Passe(EtatNC& etat, const Deplacement& ligne) { PasseLigneNC(etat, ligne.Vitesse, ligne.X, ligne.Y, ligne.Z); }

// A row's text depends on the row before it and on no other, so rows are composed in pieces. The sums are made in
// the order of the rows, on this thread, so that they have the same last digit however many threads there are.
void EcritLignes(std::string& texte, EtatNC& etat, std::span<const Deplacement> mues, SuiviNC& suivi) {
  constexpr std::size_t LignesParMorceau = 8192;
  if (NombreCoeurs < 2 || mues.size() <= LignesParMorceau) {
    for (const Deplacement& ligne : mues) {
      EcritLigne(texte, etat, ligne);
      suivi.Avance(1);
    }
    return;
  }
  const EtatNC debut = etat;
  const auto compose = [&](std::string& t, base::Plage p) {
    EtatNC avant = debut;
    if (p.debut > 0) Passe(avant, mues[p.debut - 1]);
    for (std::size_t i = p.debut; i < p.fin; ++i) EcritLigne(t, avant, mues[i]);
  };
  const auto suit = [&](base::Plage p) {
    for (std::size_t i = p.debut; i < p.fin; ++i) {
      Passe(etat, mues[i]);
      suivi.Avance(1);
    }
  };
  base::ComposeEnMorceaux(texte, NombreCoeurs, mues.size(), LignesParMorceau, compose, suit);
}

void EcritPropre(std::string& texte, EtatNC& etat, std::span<const Deplacement> mues, const CadreNC& cadre,
                 const Dialecte& d, SuiviNC& suivi) {
  EcritEntete(texte, etat, cadre, d);
  EcritLignes(texte, etat, mues, suivi);
  EcritFin(texte, etat, cadre, d);
}

// --- the others

// The row behind which the tool is in the air for good: the first above the surface behind the last cut; 0 for
// none. A cut is a row below the surface, or a way along it.
std::size_t RetourEnLAir(std::span<const Deplacement> lignes) {
  for (std::size_t i = lignes.size(); i-- > 1;) {
    const Deplacement& d = lignes[i];
    const Deplacement& avant = lignes[i - 1];
    if (d.Z < 0 || (d.Z <= 0 && (d.X != avant.X || d.Y != avant.Y))) {
      while (i < lignes.size() && lignes[i].Z <= 0) ++i;
      return i < lignes.size() ? i : 0;
    }
  }
  return 0;
}

class EcritureDialecte {
 public:
  EcritureDialecte(std::string& texte, EtatNC& etat, std::span<const Deplacement> lignes, const CadreNC& cadre,
                   const Dialecte& d)
      : cadre_(cadre),
        d_(d),
        lignes_(lignes),
        sortie_(texte, etat, d, lignes.empty() ? 0 : static_cast<double>(lignes[0].X),
                lignes.empty() ? 0 : static_cast<double>(lignes[0].Y)),
        arcs_(lignes, Tolerance(d), d.arcs ? NombreCoeurs : 1),
        etat_(etat) {}

  void Ecrit(EcritureNC& resultat, SuiviNC& suivi) {
    Entete();
    const std::size_t retour = RetourEnLAir(lignes_);
    const bool monte = lignes_.size() > 1 && lignes_[1].Z > 0;
    if (!monte) Broche();
    for (std::size_t i = 1; i < lignes_.size(); ++i) {
      const std::size_t premier = i;
      if (const auto arc = d_.arcs ? arcs_.Depuis(i) : std::nullopt) {
        for (; i < arc->dernier; ++i) Compte(lignes_[i]);
        Compte(lignes_[i]);
        sortie_.Arc(*arc, lignes_[i]);
        ++resultat.arcs;
      } else {
        sortie_.Rang(lignes_[i]);
      }
      if (i == 1 && monte) Broche();
      if (i == retour) Arret();
      suivi.Avance(static_cast<long>(i - premier) + 1);
    }
    if (retour == 0) Arret();
    Fin();
    resultat.tropLongues = sortie_.TropLongues();
  }

 private:
  void Compte(const Deplacement& ligne) {
    etat_.Va(static_cast<double>(ligne.X), static_cast<double>(ligne.Y), static_cast<double>(ligne.Z),
             static_cast<double>(ligne.Vitesse));
  }

  static ToleranceArc Tolerance(const Dialecte& d) {
    ToleranceArc tolerance;
    tolerance.ecartRayons = d.ecartRayons;
    tolerance.decimales = d.decimales;
    return tolerance;
  }

  void Entete() {
    if (d_.pourcent) sortie_.Marque("%");
    for (const std::string& ligne : cadre_.presentation) sortie_.Commentaire(ligne);
    sortie_.Commentaire(cadre_.unites);
    sortie_.Mot(d_.unites);
    sortie_.Commentaire(cadre_.absolu);
    for (const std::string& ligne : d_.debut) sortie_.Mot(ligne);
    for (const std::string& ligne : d_.outil) sortie_.Mot(ligne);
  }
  void Broche() {
    sortie_.Commentaire(cadre_.broche);
    sortie_.Mot(MotBroche(d_.broche, cadre_.vitesseBroche));
    sortie_.Mot(MotAttente(d_.attente, cadre_.attenteBroche));
    sortie_.Interrompt();
  }
  void Arret() {
    sortie_.Commentaire(cadre_.arret);
    sortie_.Mot(d_.arret);
    sortie_.Interrompt();
  }
  void Fin() {
    sortie_.Commentaire(cadre_.fin);
    for (const std::string& ligne : d_.fin) sortie_.Mot(ligne);
    if (d_.pourcent) sortie_.Marque("%");
  }

  const CadreNC& cadre_;
  const Dialecte& d_;
  std::span<const Deplacement> lignes_;
  LigneDialecte sortie_;
  ArcsDuPlan arcs_;
  EtatNC& etat_;
};

}  // namespace

bool VitessesValables(const Reglages& reglages, const TableMachine& table) {
  return VitesseValable(reglages.Vitesse_Mat_H) && VitesseValable(reglages.Vitesse_Mat_V) &&
         VitesseValable(table.VitesseMaxX) && VitesseValable(table.VitesseMaxY) &&
         VitesseValable(table.VitesseMaxZ);
}

std::string ComposeNC(std::span<const Deplacement> lignes, const CadreNC& cadre, EcritureNC& resultat) {
  return ComposeNC(lignes, cadre, DialectePropre(), resultat);
}

std::string ComposeNC(std::span<const Deplacement> lignes, const CadreNC& cadre, const Dialecte& dialecte,
                      EcritureNC& resultat) {
  EtatNC etat;
  SuiviNC suivi(etat, resultat);
  std::string texte;
  texte.reserve(4096 + lignes.size() * 24);
  if (dialecte.prescrit) {
    EcritPropre(texte, etat, lignes.subspan(lignes.empty() ? 0 : 1), cadre, dialecte, suivi);
  } else {
    EcritureDialecte(texte, etat, lignes, cadre, dialecte).Ecrit(resultat, suivi);
  }
  suivi.Montre();
  return texte;
}

}  // namespace ovelin
