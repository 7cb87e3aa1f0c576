#include "workspace/Module_Ouverture.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <new>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Arret.h"
#include "core/Avancement.h"
#include "core/BoiteRefus.h"
#include "core/ChampsMachine.h"
#include "core/Cles.h"
#include "core/ClesReglages.h"
#include "core/DocumentCourant.h"
#include "core/Etat.h"
#include "core/Fichiers.h"
#include "core/Nombres.h"
#include "core/Projet.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/ServicesPasse.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "core/ValeursCles.h"
#include "database/Module_BD.h"
#include "machine/Module_Table.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Outils.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/PasseTraces.h"
#include "workspace/Formats.h"
#include "workspace/Module_Dimension.h"
#include "workspace/RetourOuverture.h"
#include "workspace/TexteLecture.h"

namespace ovelin {

namespace {

constexpr double MmParPixel = 25.4 / 96;

pathwerk::RapportLecture Rapport;  // of the drawing in force
[[maybe_unused]] const bool Enregistree = EnregistreRemise([] { Rapport = {}; });

bool SArrete(bool renoncable) { return renoncable && SvcPasse.Lit; }

// A reading, on a thread where there is one. `renoncable`: all can still be as it was, so that Escape ends it.
void MeneLecture(DessinLu& lu, bool renoncable, const std::function<void()>& noyau) {
  if (!SArrete(renoncable)) return Travaille(noyau);
  base::Arret arret;
  lu.renonce = SvcPasse.Lit(
      [&] {
        const base::SousArret sous(&arret);
        noyau();
      },
      [&] { arret.Demande(); });
}

// The reading runs on a thread where there is one; then nobody can follow its share done, and the bar moves without
// a total.
DessinLu LitEtranger(const std::string& chemin, SouhaitLecture souhait, bool renoncable) {
  constexpr int Centiemes = 100;
  int montres = 0;
  std::function<void(double)> avancement;
  const bool sArrete = SArrete(renoncable);
  const bool suivi = !Svc.EnFond && !sArrete;
  if (suivi) {
    avancement = [&montres](double part) {
      for (; montres < Centiemes && montres < part * Centiemes; ++montres) Svc.AvancementPlus();
    };
  }
  souhait.motPlume = Traduire(Textes::CalquePlume);
  souhait.motOutil = Traduire(Textes::CalqueOutil);
  Svc.AvancementDebut(Traduire(sArrete ? Textes::LectureQuiSAnnule : Textes::LectureDessin), suivi ? Centiemes : 0);
  Svc.LaisseEvenements(Evenements::Affichage);
  DessinLu lu;
  const Reglages reglages = Regl;
  MeneLecture(lu, renoncable, [&] { lu = LitDessin(chemin, reglages, avancement, souhait); });
  Svc.AvancementFin();
  return lu;
}

// A project from a size on that is worth a thread.
DessinLu LitProjetEnFond(const std::string& chemin, bool renoncable) {
  constexpr std::uintmax_t seuilFond = 300000;  // bytes; below, it is there in some milliseconds
  std::error_code erreur;
  const std::uintmax_t taille = std::filesystem::file_size(chemin, erreur);
  DessinLu lu;
  const Reglages reglages = Regl;
  const auto lit = [&] { lu = LitDessin(chemin, reglages, {}); };
  if (erreur || taille < seuilFond) {
    lit();
    return lu;
  }
  std::optional<Avancement> attente;
  if (SArrete(renoncable)) attente.emplace(Traduire(Textes::LectureQuiSAnnule));
  MeneLecture(lu, renoncable, lit);
  return lu;
}

// The points and records of a foreign drawing come into force; bounds only where there are points.
void PrendDessin(Document&& d) {
  TraceInitial = std::move(d.TraceInitial);
  NbPoints = d.NbPoints;
  Sequences = std::move(d.Sequences);
  Complements = std::move(d.Complements);
  if (!TraceInitial.empty()) Xmin = d.Xmin, Xmax = d.Xmax, Ymin = d.Ymin, Ymax = d.Ymax;
}

MesuresMachine Mesures() {
  MesuresMachine m;
  m.courseX = LimiteCourseX();
  m.courseY = LimiteCourseY();
  m.diagonaleX = LireNombreTable(ChampsMachine::NettoyageX);
  m.diagonaleY = LireNombreTable(ChampsMachine::NettoyageY);
  m.resolution = ResolutionFine();
  return m;
}

EtapesOuverture Etapes() {
  EtapesOuverture etapes;
  etapes.Dimensionne = [](DemandeDimension& demande) { Svc.Dimensionne(demande); };
  etapes.Nettoie = [] { Svc.Panneau(PanneauEtat::Points, Traduire(Textes::NettoyagePoints)); };
  etapes.Optimise = [](Document&) { mnu_Optimisation_Click(); };
  return etapes;
}

bool BinaireOuNul(const std::string& octets) {
  if (octets.find('\0') != std::string::npos) return true;
  constexpr std::array<std::string_view, 4> Entetes{"%PDF-", "\xC5\xD0\xD3\xC6", "AutoCAD Binary DXF", "\x1F\x8B"};
  return std::any_of(Entetes.begin(), Entetes.end(), [&](std::string_view e) { return octets.starts_with(e); });
}

// Reading, joining and writing of the file alone.
bool RendFichierUniforme(const std::string& chemin) {
  try {
    const auto octets = LitFichierEntier(chemin);
    if (!octets || BinaireOuNul(*octets)) return false;
    const std::size_t premiere = octets->find('\n');
    if (premiere == std::string::npos || (premiere > 0 && (*octets)[premiere - 1] == '\r')) return false;
    std::string uniforme;
    uniforme.reserve(octets->size() + octets->size() / 8);
    for (const char c : *octets) {
      // Behind a mixture, a line that has its carriage return keeps the one.
      if (c == '\n' && (uniforme.empty() || uniforme.back() != '\r')) uniforme += '\r';
      uniforme += c;
    }
    return EcritFichierEntier(chemin, uniforme).empty();
  } catch (const std::bad_alloc&) {
    return false;  // the reader tells what it can't take
  }
}

std::string DetailAvis(const pathwerk::AvisLecture& avis) { return avis.Detail.empty() ? "" : " " + avis.Detail; }

// Why nothing may be left of a drawing: its end is missing, or all of it is of kinds that aren't milled.
std::string PourquoiSiPeu(const pathwerk::RapportLecture& rapport) {
  const std::string lu = TexteLecture(rapport);
  return (lu.empty() ? "" : ": " + lu) + (rapport.Tronque ? "\n" + Traduire(Textes::FichierTronque) : "");
}

// What the reader supposed that changes the size of the drawing: a unit that nobody gave, extents that don't fit.
// A unit that the user has been asked for was told.
void AvertitSuppositions(const pathwerk::RapportLecture& rapport, bool uniteDemandee) {
  for (const pathwerk::AvisLecture& avis : rapport.Suppose) {
    // So common that the status bar must do.
    if (avis.Numero == pathwerk::Avis::FormatDevine || avis.Numero == pathwerk::Avis::PoliceRemplacee) continue;
    const auto connu = TexteAvis(avis.Numero);
    if (!connu || (uniteDemandee && avis.Numero == pathwerk::Avis::SansUniteSvg)) continue;
    MessageFichier(*connu, DetailAvis(avis) + "\n" + FichierCourant, Icone::Exclamation, FichierCourant);
  }
}

// A drawing whose end is missing looks whole in the picture, so it is told, like a project's.
void AvertitTronque() {
  MessageFichier(Textes::FichierTronque, "\n" + FichierCourant, Icone::Exclamation, FichierCourant);
}

// What an opening puts in force before a byte of the file is looked at.
void CommenceOuverture(const std::string& chemin, RetourOuverture& retour) {
  Svc.DessinOuvert(false);
  FichierCourant = chemin;
  Rapport = {};
  retour.CommenceCles();
  ExtensionCourante = ExtensionDe(chemin);
  FichierProjet.clear();
  Prolongement = Faux;
  SeqCourante = CodeAucun;
  retour.CommenceFichiers();
  if (!EstProjet(chemin)) TraceDecale.clear();
}

// A closing line of an old file stands where the file has no settings line of its key: the settings of this machine
// were never those of that drawing.
void PrendFermeture(std::string_view cle, const std::optional<double>& fermeture, double& valeur) {
  const OrigineCle origine = OrigineDe(cle);
  if (fermeture && origine != OrigineCle::Projet && origine != OrigineCle::Surcharge) valeur = *fermeture;
}

// False when it is refused, which has been told.
bool PrendProjetLu(DessinLu& lu) {
  const std::optional<double> largeur = lu.projet->LargeurEncoche;
  const std::optional<double> mini = lu.projet->MiniEncoche;
  if (!PrendProjet(lu.chemin, std::move(*lu.projet))) return false;
  FichierProjet = lu.chemin;
  Modifie = Vrai;
  LitReglagesDocument();
  PrendFermeture(cles::LargeurEncoche, largeur, LargeurEncoche);
  PrendFermeture(cles::MiniEncoche, mini, MiniEncoche);
  return true;
}

// "24 x 24" of a drawing, in mm.
std::string TailleEnMm(std::string_view taille, double mmParUnite) {
  double largeur = 0;
  double hauteur = 0;
  const char* const fin = taille.data() + taille.size();
  const auto [apres, erreur] = std::from_chars(taille.data(), fin, largeur);
  const std::size_t croix = taille.find(" x ");
  if (erreur != std::errc() || croix == std::string_view::npos) return "";
  std::from_chars(taille.data() + croix + 3, fin, hauteur);
  return TexteTaille(largeur * mmParUnite) + " x " + TexteTaille(hauteur * mmParUnite) + " mm";
}

DessinLu Lit(const std::string& chemin, const SouhaitLecture& souhait, bool renoncable) {
  DessinLu lu = EstProjet(chemin) ? LitProjetEnFond(chemin, renoncable) : LitEtranger(chemin, souhait, renoncable);
  if (lu.refus && lu.document.NbPoints == ErreurTropPeuDePoints)
    lu.refus->suite += PourquoiSiPeu(lu.contenu.rapport);
  return lu;
}

// A drawing in SVG that says how many units it is wide and not which: asked once, with the size that each would
// give. Millimetres are read anew, so that curves and joints hold their tolerance.
void DemandeUniteSvg(DessinLu& lu, bool renoncable) {
  for (const pathwerk::AvisLecture& avis : lu.contenu.rapport.Suppose) {
    if (avis.Numero != pathwerk::Avis::SansUniteSvg) continue;
    BoiteMessage boite;
    boite.section = Textes::DemandeUnite.Section();
    boite.cle = Textes::DemandeUnite.Cle();
    boite.texte = Traduire(Textes::DemandeUnite) + "\n" + TailleEnMm(avis.Detail, 1) + "\n" +
                  TailleEnMm(avis.Detail, MmParPixel);
    boite.titre = "OVELIN";
    boite.icone = Icone::Question;
    boite.boutons = Boutons::OuiNon;
    boite.fichier = lu.chemin;
    if (Svc.Montre(boite) == Reponse::Oui) lu = Lit(std::string(lu.chemin), {.uniteSvg = 1}, renoncable);
    return;
  }
}

// The same for a foreign drawing, which becomes a job of this machine.
bool PrendEtranger(DessinLu& lu, const OptionsOuverture& options) {
  PrendDessin(std::move(lu.document));
  Svc.LaisseEvenements(Evenements::Affichage);
  LitReglagesDocument();
  if (lu.refus) {
    Svc.Montre(BoiteRefus(*lu.refus));
    return false;
  }
  lu.contenu.message = TexteLecture(lu.contenu.rapport);
  Rapport = lu.contenu.rapport;
  if (lu.contenu.rapport.Tronque) AvertitTronque();
  AvertitSuppositions(lu.contenu.rapport, options.demandeUnite);
  PrepareDessin(Doc, Mesures(), Etapes());
  return true;
}

// Traces, focus and status bar of a drawing that stands. False: taken back.
bool AcheveOuverture(const std::string& ecartes, RetourOuverture& retour) {
  VERIFIE(!TraceInitial.empty());  // fewer than two points are refused
  Svc.LaisseEvenements(Evenements::Affichage);
  if (!retour.Suit()) return false;
  Svc.LaisseEvenements(Evenements::Affichage);
  EncombrementGeneral();
  SeqCourante = TraceInitial.front().Seq;
  PointCourantX = TraceInitial.front().X;
  PointCourantY = TraceInitial.front().Y;
  Svc.Panneau(PanneauEtat::Fichier, " " + NomDe(FichierCourant));
  // What the reader has left out, kind by kind with its count.
  Svc.Panneau(PanneauEtat::Statut, ecartes);
  // The view, the lists and the picture of a large drawing take their time one by one.
  Svc.LaisseEvenements(Evenements::Affichage);
  Svc.DessinOuvert(true);
  Svc.LaisseEvenements(Evenements::Affichage);
  Svc.Rafraichit();
  return true;
}

// Settings of the project that can't be read stand beside its lines.
void AjouteReglagesIllisibles(ContenuLu& contenu) {
  for (ValeurIllisible& v : ReglagesIllisibles()) {
    if (v.fichier == FichierCourant) contenu.illisibles.push_back(std::move(v));
  }
}

// What has been read comes into force, in the order of the steps. `contenu`, when given, takes what was read.
Ouverture MetEnVigueur(DessinLu& lu, const OptionsOuverture& options, ContenuLu* contenu, RetourOuverture& retour) {
  const bool projet = lu.projet.has_value();
  const bool pris = projet ? PrendProjetLu(lu) : PrendEtranger(lu, options);
  if (!pris) retour.Refuse();
  if (pris && projet) AjouteReglagesIllisibles(lu.contenu);
  if (pris && !AcheveOuverture(lu.contenu.message, retour)) return Ouverture::Abandon;
  if (pris && projet) {
    lu.contenu.xmin = Xmin;
    lu.contenu.xmax = Xmax;
    lu.contenu.ymin = Ymin;
    lu.contenu.ymax = Ymax;
  }
  if (pris && contenu == nullptr) AvertitValeurs(lu.contenu.illisibles);
  if (contenu != nullptr) *contenu = std::move(lu.contenu);
  return pris ? Ouverture::Reussie : Ouverture::Refusee;
}

// The opening from its first effect on; `lit` gives the drawing when it is wanted. Want of memory on the way leaves
// the drawing of before, where there is a way back.
Ouverture Ouvre(const std::string& chemin, const OptionsOuverture& options, ContenuLu* contenu,
                const std::function<DessinLu(bool renoncable)>& lit) {
  RetourOuverture retour(chemin, options, Rapport);
  try {
    CommenceOuverture(chemin, retour);
    if (EstProjet(chemin)) NbPoints = 0;  // the count of the drawing that stood is gone
    DessinLu lu = lit(retour.SeReprend());
    const bool etranger = !lu.renonce && !lu.refus && !lu.projet;
    if (etranger && options.demandeUnite) DemandeUniteSvg(lu, retour.SeReprend());
    if (lu.renonce) {
      retour.Reprend();
      return Ouverture::Abandon;
    }
    return MetEnVigueur(lu, options, contenu, retour);
  } catch (...) {
    retour.Reprend();
    throw;
  }
}

}  // namespace

const pathwerk::RapportLecture& RapportOuvert() { return Rapport; }

std::string ChoisitDessin() {
  DialogueFichier dialogue;
  dialogue.cle = "mnu_Ouvrir";
  dialogue.titre = Traduire(Textes::OuvreDessin);
  dialogue.filtre = dialogue.titre;
  dialogue.motif = MotifDessins();
  dialogue.propose = LireCle(cles::Fichier, "");
  return Svc.ChoisitFichier(dialogue);
}

DessinLu LitAOuvrir(const std::string& chemin, const SouhaitLecture& souhait) {
  return Lit(chemin, souhait, SvcPasse.SePeut());
}

void RefuseDessinLu(const DessinLu& lu) {
  for (const auto& [cle, valeur] : lu.cles) EcrireCle(cle, valeur);
  Svc.FichierRecent(lu.chemin);
  Svc.Montre(BoiteRefus(*lu.refus));
}

bool RendUniforme(const std::string& chemin) {
  if (LectureSeule(chemin)) return false;
  bool rendu = false;
  Travaille([&] { rendu = RendFichierUniforme(chemin); });
  return rendu;
}

Ouverture mnu_Ouvrir(const std::string& chemin, const OptionsOuverture& options, ContenuLu* contenu) {
  // The key store knows a project by its folder, so a name alone would leave its settings unread.
  const std::string choisi = CheminComplet(options.dehors ? chemin : ChoisitDessin());
  std::error_code erreur;
  if (choisi.empty() || !std::filesystem::exists(choisi, erreur)) return Ouverture::Abandon;
  return Ouvre(choisi, options, contenu, [&](bool renoncable) { return Lit(choisi, options.souhait, renoncable); });
}

Ouverture OuvreDessinLu(DessinLu&& lu, const OptionsOuverture& options, ContenuLu* contenu) {
  lu.chemin = CheminComplet(lu.chemin);
  return Ouvre(std::string(lu.chemin), options, contenu, [&](bool) { return std::move(lu); });
}

std::string EnregistreProjet(const std::string& nom) {
  const std::string chemin = CheminComplet(nom);
  const std::string avant = FichierProjet;
  FichierProjet = chemin;
  std::string raison = EcrireProjet(chemin);
  if (!raison.empty()) {
    FichierProjet = avant;
    return raison;
  }
  FichierCourant = chemin;
  ExtensionCourante = "OVL";
  Svc.Panneau(PanneauEtat::Fichier, std::string(" ") + NomProgramme + " <-> " + NomDe(chemin));
  Svc.FichierRecent(chemin);
  Modifie = Faux;
  const auto meme = [](const PointTrace& p) { return MemePlace(p, TraceInitial.front()); };
  if (!TraceInitial.empty() && std::all_of(TraceInitial.begin(), TraceInitial.end(), meme)) {
    MessageFichier(Textes::ProjetUnPoint, "\n" + chemin, Icone::Exclamation, chemin);
  }
  return "";
}

namespace {

// A material is more than the tool of the traces: the way back of a record that is put in force.
std::function<void()> RetourMateriau() {
  std::vector<std::string> cles = ClesMateriau();
  cles.emplace_back(cles::MatDefaut);
  return [reglages = Regl, materiau = MateriauCourant, retour = std::make_shared<RetourCles>(std::move(cles))] {
    ProfFraisage = reglages.ProfFraisage;
    ProfPasse = reglages.ProfPasse;
    Vitesse_Mat_H = reglages.Vitesse_Mat_H;
    Vitesse_Mat_V = reglages.Vitesse_Mat_V;
    MiniEncoche = reglages.MiniEncoche;
    MateriauCourant = materiau;
    retour->Remet();
  };
}

}  // namespace

bool AppliqueMateriau(int rang) {
  if (rang == 0) return true;
  PasseTraces passe(RetourMateriau());
  if (!ChargeFiche(rang)) return false;
  const bool vide = Sequences.empty() || (Sequences.size() == 1 && Sequences[0].Code == Code2{});
  if (vide) return true;
  bool egales = true;
  for (const SequenceInfo& s : Sequences) egales = egales && s.Profondeur == Sequences[0].Profondeur;
  if (!egales && Message(Textes::ProfondeursInegales, Icone::Question, Boutons::OuiNon) != Reponse::Oui)
    return false;
  ProfondeurPourTous();
  Modifie = Vrai;
  if (!TraceDecale.empty()) {
    const IssuePasse issue = passe.SuitTout();
    if (issue != IssuePasse::EnVigueur) return PasseTraces::Faite(issue);
  }
  Svc.Rafraichit();
  return true;
}

}  // namespace ovelin
