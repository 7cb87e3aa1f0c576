#include "run/Module_Fraisage.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdio>
#include <utility>

#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/ClesReglages.h"
#include "core/DocumentCourant.h"
#include "core/Duree.h"
#include "core/Fichiers.h"
#include "core/Nombres.h"
#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "machine/TableCourante.h"
#include "run/Module_Dialecte.h"
#include "run/Module_Lancement.h"
#include "run/Module_Profil.h"
#include "run/NoyauPlan.h"

namespace ovelin {

namespace {

constexpr double VitesseMaximum = 1e9;  // mm/s, what the writer takes at most
constexpr int TwipsPixel = 15;
constexpr double VitesseMinimum = 0.1;  // mm/s, of the step buttons

bool VitesseValable(double v) { return v > 0 && v <= VitesseMaximum; }

// Keys of the place of the window.
std::string CleGauche() { return std::string("F_Fraisage") + cles::suffixe::Gauche; }
std::string CleHaut() { return std::string("F_Fraisage") + cles::suffixe::Haut; }

std::optional<CleTexte> EntreVitesse(double& vitesse, const std::string& texte) {
  const auto v = NombreDuTexte(texte);
  if (!v) return Textes::VitesseNonNombre;
  if (!VitesseValable(*v)) return Textes::VitesseNonPositive;
  if (*v == vitesse) return std::nullopt;
  vitesse = *v;
  Modifie = Vrai;
  EcritMateriau();
  return std::nullopt;
}

// Fowler, Noll, Vo: 64 bits, over words instead of bytes.
class Empreinte {
 public:
  void Ajoute(std::uint64_t mot) { valeur_ = (valeur_ ^ mot) * 1'099'511'628'211U; }
  void Nombre(double v) { Ajoute(std::bit_cast<std::uint64_t>(v)); }
  [[nodiscard]] std::uint64_t Valeur() const { return valeur_; }

 private:
  std::uint64_t valeur_ = 14'695'981'039'346'656'037U;
};

// The drawing's name in its own folder, with the extension of the dialect in force.
std::string NomPropose() {
  if (FichierCourant.empty()) return "";
  const auto offert = TrouveDialecte(Regl.DialecteNC);
  return NomSansExtension(FichierCourant) + "." + (offert ? offert->dialecte.extension : std::string("nc"));
}

}  // namespace

bool PlanPermis() { return !OperationCarte && !AttendCarte && CdeZENIK->EnCours == Faux; }

ResumePlan PlanifiePourFenetre(bool prevoit) {
  ResumePlan resume;
  resume.vide = TraceDecale.empty();
  if (resume.vide) return resume;
  prevoit = prevoit && CdeZENIK->IsAvailable();
  if (prevoit) CdeZENIK->TableVerif();
  resume.refus = VerifieHautDeg();
  if (!resume.refus) {
    if (const auto refus = VerifiePlan()) resume.refus = RefusPlan{*refus, ""};
  }
  if (resume.refus || !Tableau_Decoupe()) return resume;
  resume.figures = FiguresDe(LignesDe(Plan));
  const FiguresPlan& f = resume.figures;
  resume.horsCourse = f.coupe && (f.xmin < 0 || f.ymin < 0 || f.xmax > CourseX || f.ymax > CourseY);
  resume.avis = AvisDuPlan();
  const CompteUsinage usinage = CompteUsinageDe(Doc, ProfPasse);
  resume.sequences = usinage.sequences;
  resume.sansTrajet = usinage.sansTrajet;
  resume.passes = usinage.passes;
  std::int16_t reserve = 0;
  Vitesse_Decoupe_H(resume.VSansRampe, resume.VMax, reserve);
  if (prevoit) resume.prevu = TempsDecoupe();
  return resume;
}

std::uint64_t EmpreintePlan() {
  Empreinte e;
  for (const SequenceDecalee& s : TraceDecale) {
    for (const PointTrace& p : s.Points) {
      e.Ajoute(std::bit_cast<std::uint32_t>(p.X));
      e.Ajoute(std::bit_cast<std::uint32_t>(p.Y));
      e.Ajoute(p.Cde.Cle());
    }
    e.Ajoute(s.Points.size());
  }
  for (const SequenceInfo& s : Sequences) {
    e.Ajoute(s.Code.Cle());
    e.Ajoute(static_cast<std::uint64_t>(s.Fraiser != Faux));
    e.Nombre(s.Profondeur);
  }
  for (const double v : {ProfPasse, MiniEncoche, Vitesse_Mat_H, Vitesse_Mat_V, static_cast<double>(HautDeg),
                         static_cast<double>(VitesseMaxX), static_cast<double>(VitesseMaxY),
                         static_cast<double>(VitesseMaxZ), RayonFraise, AngleRampe}) {
    e.Nombre(v);
  }
  return e.Valeur();
}

void ChoisitMode(int mode) {
  if (mode == ModeChoisi()) return;
  Regl.ModeZENIK = static_cast<std::int16_t>(mode);
  EcritMateriau();
}

int ModeChoisi() { return std::clamp<int>(Regl.ModeZENIK, EnvoiDirect, MemoireEtFraisage); }

void ChargeFraisage() {
  if (ProfPasse == 0) ProfPasse = -1;
}

std::optional<CleTexte> EntreVit_Mat_H(const std::string& texte) { return EntreVitesse(Vitesse_Mat_H, texte); }
std::optional<CleTexte> EntreVit_Mat_V(const std::string& texte) { return EntreVitesse(Vitesse_Mat_V, texte); }

std::string PasVit_Mat_H(const std::string& texte, int index) {
  const double pas = index == 1 ? -1 : index == 2 ? -0.1 : index == 3 ? 0.1 : index == 4 ? 1 : 0;
  const double maximum = std::min(VitesseMaxX, VitesseMaxY);
  const double v = NombreDuTexte(texte).value_or(Vitesse_Mat_H) + pas;
  return Formate(std::max(VitesseMinimum, std::min(v, maximum)), "0.0");
}

bool GenereGCode(const std::string& vitesseH, const std::string& vitesseV, EcritureNC& resultat) {
  if (const auto refus = VerifieHautDeg()) {
    MessageFichier(refus->cle, refus->suite, Icone::Critique, "");
    return false;
  }
  const bool bonneH = !EntreVit_Mat_H(vitesseH);
  const bool bonneV = !EntreVit_Mat_V(vitesseV);
  const double avantH = Vitesse_Mat_H;
  const double avantV = Vitesse_Mat_V;
  // A refused one as it stands in its field, so that the writer says what is wrong; it isn't kept.
  if (!bonneH) Vitesse_Mat_H = NombreDuTexte(vitesseH).value_or(0);
  if (!bonneV) Vitesse_Mat_V = NombreDuTexte(vitesseV).value_or(0);
  const bool propose = NomFichierNC.empty();
  const std::string nom = NomPropose();
  if (propose) NomFichierNC = nom;
  const bool ecrit = EcritGCode("", resultat);
  Vitesse_Mat_H = avantH;
  Vitesse_Mat_V = avantV;
  // A name that nobody has chosen isn't one that was used.
  if (!ecrit && propose && NomFichierNC == nom) NomFichierNC.clear();
  return ecrit;
}

void FermeFraisage(int gauche, int haut) {
  const LotCles lot;
  EcrireCle(cles::Vitesse_Mat_H, TexteNombre(Vitesse_Mat_H));
  EcrireCle(cles::Vitesse_Mat_V, TexteNombre(Vitesse_Mat_V));
  const SansProjet reglages;
  EcrireCle(CleGauche(), TexteNombre(long{gauche} * TwipsPixel));
  EcrireCle(CleHaut(), TexteNombre(long{haut} * TwipsPixel));
}

std::optional<std::pair<int, int>> LitPlaceFraisage() {
  const auto gauche = NombreDuTexte(LireCleIni(CleGauche(), ""));
  const auto haut = NombreDuTexte(LireCleIni(CleHaut(), ""));
  if (!gauche || !haut) return std::nullopt;
  return std::pair<int, int>{Arrondi32(*gauche / TwipsPixel), Arrondi32(*haut / TwipsPixel)};
}

std::string TexteDuree(double secondes) {
  const Duree d = DureeDe(secondes);
  char tampon[64];
  if (d.heures > 0) {
    std::snprintf(tampon, sizeof tampon, "%ld h %02ld min %02ld s", d.heures, d.minutes, d.secondes);
  } else if (d.minutes > 0) {
    std::snprintf(tampon, sizeof tampon, "%ld min %02ld s", d.minutes, d.secondes);
  } else {
    std::snprintf(tampon, sizeof tampon, "%ld s", d.secondes);
  }
  return tampon;
}

}  // namespace ovelin
