#include "workspace/Module_Ouverture.h"

#include <cmath>
#include <filesystem>
#include <new>
#include <utility>
#include <vector>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "core/Nombres.h"
#include "core/Projet.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/Traduction.h"
#include "database/Module_BD.h"
#include "machine/Module_Table.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Outils.h"
#include "toolpath/Module_Sequence.h"
#include "workspace/Formats.h"
#include "workspace/Module_Annulation.h"

namespace ovelin {

namespace {

constexpr const char* Section = "F_Representation";
constexpr std::int32_t TropPeuDePoints = -109;
constexpr std::int32_t SansMessage = -101;        // the one number whose box has no line of the library's
constexpr std::int32_t SeuilOptimisation = 5000;  // points; a larger drawing keeps its order, for time
constexpr float Marge = 5;                        // mm between the drawing and the machine's origin

// One record for each change of `Seq` along the points.
void RemplitSequences() {
  Sequences.assign(1, SequenceInfo{});
  Code2 dernier = CodeAucun;
  for (const PointTrace& point : TraceInitial) {
    if (point.Seq == dernier) continue;
    dernier = point.Seq;
    const SequenceInfo fiche{dernier, Faux, ProfFraisage, Vrai, 1, Vrai};
    if (Sequences.size() == 1 && Sequences[0].Code == Code2{}) {
      Sequences[0] = fiche;
    } else {
      Sequences.push_back(fiche);
    }
  }
}

// What the library gives, nothing of the document touched yet.
struct DessinLu {
  std::vector<PointTrace> points;
  std::int32_t nombre = 0;
  float xmin = 0, xmax = 0, ymin = 0, ymax = 0;
  std::string message = std::string(pathwerk::LongueurMessage, ' ');
  pathwerk::RapportLecture rapport;
};

// The reading runs on a thread where there is one; then nobody can follow its share done, and the bar moves without
// a total.
DessinLu LitFichierDessin(const std::string& chemin) {
  DessinLu lu;
  lu.points.assign(1, PointTrace{});
  lu.xmin = Xmin, lu.xmax = Xmax, lu.ymin = Ymin, lu.ymax = Ymax;
  pathwerk::OptionsLecture options;
  options.ToleranceSoudure = static_cast<double>(Regl.ToleranceSoudure);
  constexpr int Centiemes = 100;
  int montres = 0;
  if (!Svc.EnFond) {
    options.Avancement = [&montres](double part) {
      for (; montres < Centiemes && montres < part * Centiemes; ++montres) Svc.AvancementPlus();
    };
  }
  Svc.AvancementDebut(Traduire(Section, "lib201"), Svc.EnFond ? 0 : Centiemes);
  Svc.LaisseEvenements(Evenements::Affichage);
  Travaille([&] {
    lu.nombre = pathwerk::LireFichier(lu.points, chemin, lu.xmin, lu.xmax, lu.ymin, lu.ymax, lu.message, options,
                                      lu.rapport);
  });
  Svc.AvancementFin();
  return lu;
}

void LitDessin(ContenuLu& contenu) {
  DessinLu lu = LitFichierDessin(FichierCourant);
  TraceInitial = std::move(lu.points);
  NbPoints = lu.nombre;
  if (NbPoints < 0) TraceInitial.clear();
  Xmin = contenu.xmin = lu.xmin;
  Xmax = contenu.xmax = lu.xmax;
  Ymin = contenu.ymin = lu.ymin;
  Ymax = contenu.ymax = lu.ymax;
  contenu.points = NbPoints;
  contenu.message = Rogne(lu.message);
  contenu.rapport = std::move(lu.rapport);
  RemplitSequences();
  contenu.sequences = TraceInitial.empty() ? 0 : NbSequences();
}

// Status panel of what the reader has left out, kind by kind with its count.
constexpr int PanneauEcartes = 5;

// The size dialog, then the clean-up: the machine's finest step stands to the diagonal of its travel as the
// tolerance to the diagonal of the drawing, so that a drawing of any size keeps the same share of its points.
void DimensionneEtNettoie() {
  EncombrementGeneral();
  DemandeDimension demande;
  demande.largeur = static_cast<double>(Xmax) - static_cast<double>(Xmin);
  demande.hauteur = static_cast<double>(Ymax) - static_cast<double>(Ymin);
  demande.courseX = LimiteCourseX();
  demande.courseY = LimiteCourseY();
  Svc.Dimensionne(demande);
  Doc.EchelleX = demande.rapportX;
  Doc.EchelleY = demande.rapportY;
  if (demande.rapportX != 1.0 || demande.rapportY != 1.0) {
    for (PointTrace& point : TraceInitial) {
      point.X = static_cast<float>(static_cast<double>(point.X) * demande.rapportX);
      point.Y = static_cast<float>(static_cast<double>(point.Y) * demande.rapportY);
    }
    EncombrementGeneral();
  }
  Svc.Panneau(2, Traduire(Section, "lib202"));
  const double d = std::hypot(static_cast<double>(Xmax) - static_cast<double>(Xmin),
                              static_cast<double>(Ymax) - static_cast<double>(Ymin));
  const double D = std::hypot(LireNombreTable("TB_SAV_18", 1000), LireNombreTable("TB_SAV_19", 600));
  if (D > 0) NettoieTout(static_cast<float>(ResolutionFine() / D * d));
  EncombrementGeneral();
}

bool BinaireOuNul(const std::string& octets) {
  if (octets.find('\0') != std::string::npos) return true;
  return octets.starts_with("\xC5\xD0\xD3\xC6") || octets.starts_with("AutoCAD Binary DXF");
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
      if (c == '\n') uniforme += '\r';
      uniforme += c;
    }
    return EcritFichierEntier(chemin, uniforme).empty();
  } catch (const std::bad_alloc&) {
    return false;  // the reader tells what it can't take
  }
}

// A drawing whose end is missing looks whole in the picture, so it is told, like a project's.
void AvertitTronque() {
  MessageFichier("erreurs", "102", "\n" + FichierCourant, Icone::Exclamation, FichierCourant);
}

}  // namespace

void MontreRefusLecture(const ContenuLu& contenu) {
  Boite boite;
  boite.section = Section;
  boite.cle = "lib" + std::to_string(-static_cast<long>(NbPoints));
  boite.texte = Traduire(boite.section, boite.cle) + " (" + ExtensionCourante + ")";
  if (NbPoints != SansMessage && !contenu.message.empty()) boite.texte += "\n" + contenu.message;
  boite.titre = NomProgramme;
  boite.icone = Icone::Critique;
  boite.fichier = FichierCourant;
  boite.ligne = contenu.rapport.Ligne;
  Svc.Montre(boite);
}

bool RendUniforme(const std::string& chemin) {
  if (LectureSeule(chemin)) return false;
  bool rendu = false;
  Travaille([&] { rendu = RendFichierUniforme(chemin); });
  return rendu;
}

Ouverture mnu_Ouvrir(const std::string& chemin, const OptionsOuverture& options, ContenuLu* contenu) {
  ContenuLu local;
  ContenuLu& lu = contenu != nullptr ? *contenu : local;
  std::string choisi = chemin;
  if (!options.dehors) {
    DialogueFichier dialogue;
    dialogue.cle = "mnu_Ouvrir";
    dialogue.titre = Traduire(Section, "lib007");
    dialogue.filtre = dialogue.titre;
    dialogue.motif = MotifDessins();
    dialogue.propose = LireCle("Fichier", "");
    choisi = Svc.ChoisitFichier(dialogue);
  }
  std::error_code erreur;
  if (choisi.empty() || !std::filesystem::exists(choisi, erreur)) return Ouverture::Abandon;

  Svc.DessinOuvert(false);
  FichierCourant = choisi;
  if (options.ecritFichier) {
    EcrireCle("Fichier", FichierCourant);
    Svc.FichierRecent(FichierCourant);
  }
  ExtensionCourante = ExtensionDe(FichierCourant);
  FichierProjet.clear();
  Prolongement = Faux;
  SeqCourante = CodeAucun;
  EffaceTousInstantanes();
  if (options.rendUniforme) RendUniforme(FichierCourant);

  const bool projet = ExtensionCourante == "OVL";
  if (projet) {
    lu.rapport.Format = "OVL";
    if (!LireProjet(FichierCourant)) return Ouverture::Refusee;
    FichierProjet = FichierCourant;
    Modifie = Vrai;
    lu.points = NbPoints;
    lu.sequences = TraceInitial.empty() ? 0 : NbSequences();
  } else {
    TraceDecale.clear();
    LitDessin(lu);
    Svc.LaisseEvenements(Evenements::Affichage);
  }
  LitReglagesDocument();
  if (NbPoints >= 0 && NbPoints < 2) NbPoints = TropPeuDePoints;
  if (NbPoints < 0) {
    MontreRefusLecture(lu);
    return Ouverture::Refusee;
  }
  if (lu.rapport.Tronque) AvertitTronque();
  if (FichierProjet.empty()) DimensionneEtNettoie();
  if (!projet) {
    if (NbPoints < SeuilOptimisation) mnu_Optimisation_Click();
    for (PointTrace& point : TraceInitial) {
      point.X += Marge;
      point.Y += Marge;
    }
  }
  Svc.LaisseEvenements(Evenements::Affichage);
  RecalculDecalages();
  Svc.LaisseEvenements(Evenements::Affichage);
  EncombrementGeneral();
  if (projet) {
    lu.xmin = Xmin;
    lu.xmax = Xmax;
    lu.ymin = Ymin;
    lu.ymax = Ymax;
  }
  SeqCourante = TraceInitial.front().Seq;
  PointCourantX = TraceInitial.front().X;
  PointCourantY = TraceInitial.front().Y;
  Svc.Panneau(1, " " + NomDe(FichierCourant));
  Svc.Panneau(PanneauEcartes, lu.message);
  // The view, the lists and the picture of a large drawing take their time one by one.
  Svc.LaisseEvenements(Evenements::Affichage);
  Svc.DessinOuvert(true);
  Svc.LaisseEvenements(Evenements::Affichage);
  Svc.Rafraichit();
  return Ouverture::Reussie;
}

std::string EnregistreProjet(const std::string& chemin) {
  const std::string avant = FichierProjet;
  FichierProjet = chemin;
  std::string raison = EcrireProjet(chemin);
  if (!raison.empty()) {
    FichierProjet = avant;
    return raison;
  }
  FichierCourant = chemin;
  ExtensionCourante = "OVL";
  Svc.Panneau(1, std::string(" ") + NomProgramme + " <-> " + NomDe(chemin));
  Svc.FichierRecent(chemin);
  Modifie = Faux;
  return "";
}

bool AppliqueMateriau(int rang) {
  if (rang == 0) return true;
  if (!ChargeFiche(rang)) return false;
  const bool vide = Sequences.empty() || (Sequences.size() == 1 && Sequences[0].Code == Code2{});
  if (vide) return true;
  bool egales = true;
  for (const SequenceInfo& s : Sequences) egales = egales && s.Profondeur == Sequences[0].Profondeur;
  if (!egales && Message(Section, "lib106", Icone::Question, Boutons::OuiNon) != Reponse::Oui) return false;
  ProfondeurPourTous();
  Modifie = Vrai;
  if (!TraceDecale.empty()) RecalculDecalages();
  Svc.Rafraichit();
  return true;
}

}  // namespace ovelin
