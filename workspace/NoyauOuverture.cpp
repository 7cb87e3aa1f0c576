#include "workspace/NoyauOuverture.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <unordered_map>

#include "base/Indices.h"
#include "core/Coeurs.h"
#include "core/Fichiers.h"
#include "core/Nombres.h"
#include "core/Textes.h"
#include "toolpath/NettoieChemin.h"
#include "toolpath/chemins/Etendues.h"

namespace ovelin {

namespace {

constexpr std::int32_t SansMessage = -101;        // the one number whose box has no line of the library's
constexpr std::int32_t SeuilOptimisation = 5000;  // points; a larger drawing keeps its order, for time
constexpr float Marge = 5;                        // mm between the drawing and the machine's origin

// One record for each change of `Seq` along the points.
std::vector<SequenceInfo> FichesNeuves(std::span<const PointTrace> points, double profondeur) {
  std::vector<SequenceInfo> fiches;
  Code2 dernier = CodeAucun;
  for (const PointTrace& point : points) {
    if (point.Seq == dernier) continue;
    dernier = point.Seq;
    const SequenceInfo fiche{dernier, Faux, profondeur, Vrai, 1, Vrai};
    // A blank code stands for an empty table, which the next one fills.
    if (fiches.size() == 1 && fiches.front().Code == Code2{}) {
      fiches.front() = fiche;
    } else {
      fiches.push_back(fiche);
    }
  }
  if (fiches.empty()) fiches.emplace_back();
  return fiches;
}

std::string TexteCalque(const pathwerk::Calque& calque, const SouhaitLecture& souhait) {
  switch (calque.Sorte) {
    case pathwerk::Calque::Genre::Plume:
      return NomDeCalque(souhait.motPlume + " " + calque.Nom);
    case pathwerk::Calque::Genre::Outil:
      return NomDeCalque(souhait.motOutil + " " + calque.Nom);
    case pathwerk::Calque::Genre::Nomme:
      break;
  }
  return NomDeCalque(calque.Nom);
}

// Layer and colour of each path. Where all have the same, there is nothing to tell apart, and nothing is kept: such
// a drawing makes the project that it always has.
TableComplements ComplementsDe(const pathwerk::Importation& importe, const SouhaitLecture& souhait) {
  TableComplements table;
  const std::vector<std::uint16_t>& places = importe.CalquesDesChemins;
  const auto autre = [&](std::uint16_t p) { return p != places.front(); };
  if (std::none_of(places.begin(), places.end(), autre)) return table;
  const std::vector<Etendue> chemins = EtenduesDe(importe.Points);
  std::unordered_map<std::uint16_t, std::string> noms;  // of the layers that a path lies on
  for (std::size_t i = 0; i < std::min(chemins.size(), places.size()); ++i) {
    const pathwerk::Calque& calque = importe.Calques.at(places[i]);
    const auto [nom, neuf] = noms.try_emplace(places[i]);
    if (neuf) nom->second = TexteCalque(calque, souhait);
    table.Pose(chemins[i].code, {false, nom->second, calque.Couleur});
  }
  return table;
}

std::int32_t NombreRuns(const Document& document) { return base::Compte(EtenduesDe(document.TraceInitial).size()); }

void LitEtranger(DessinLu& lu, const Reglages& reglages, const std::function<void(double)>& avancement,
                 const SouhaitLecture& souhait) {
  Document& d = lu.document;
  pathwerk::OptionsLecture options;
  options.ToleranceSoudure = reglages.ToleranceSoudure;
  options.Avancement = avancement;
  options.Page = souhait.page;
  options.Fils = NombreCoeurs;
  options.UniteSupposee = souhait.uniteSvg;
  pathwerk::Importation importe = pathwerk::ImporteFichier(lu.chemin, options);
  d.NbPoints = importe.Nombre;
  d.Complements = ComplementsDe(importe, souhait);
  if (d.NbPoints >= 0) d.TraceInitial = std::move(importe.Points);
  d.Xmin = importe.Xmin, d.Xmax = importe.Xmax, d.Ymin = importe.Ymin, d.Ymax = importe.Ymax;
  d.Sequences = FichesNeuves(d.TraceInitial, reglages.ProfFraisage);
  ContenuLu& c = lu.contenu;
  c.rapport = std::move(importe.Rapport);
  c.message = Rogne(importe.Message);
  c.points = d.NbPoints;
  c.sequences = NombreRuns(d);
  c.xmin = d.Xmin, c.xmax = d.Xmax, c.ymin = d.Ymin, c.ymax = d.Ymax;
  if (d.NbPoints >= 0 && d.NbPoints < 2) d.NbPoints = ErreurTropPeuDePoints;
  if (d.NbPoints < 0) lu.refus = RefusLecture(d.NbPoints, lu.chemin, c);
}

void LitProjetEntier(DessinLu& lu) {
  lu.contenu.rapport.Format = "OVL";
  lu.projet = LitProjetGarde(lu.chemin);
  lu.refus = lu.projet->refus;
  if (lu.refus) return;
  lu.contenu.illisibles = lu.projet->illisibles;
  lu.contenu.points = lu.projet->document.NbPoints;
  lu.contenu.sequences = NombreRuns(lu.projet->document);
}

// The machine's finest step stands to the diagonal of its travel as the tolerance to the diagonal of the drawing,
// so that a drawing of any size keeps the same share of its points.
void NettoieDocument(Document& d, const MesuresMachine& machine) {
  const double diagonale = std::hypot(Ecart(d.Xmin, d.Xmax), Ecart(d.Ymin, d.Ymax));
  const double course = std::hypot(machine.diagonaleX, machine.diagonaleY);
  if (!(course > 0)) return;
  d.TraceInitial = NettoiePoints(d.TraceInitial, static_cast<float>(machine.resolution / course * diagonale));
  d.NbPoints = base::Compte(d.TraceInitial.size());
}

void Dimensionne(Document& d, const MesuresMachine& machine, const EtapesOuverture& etapes) {
  MesureDocument(d);
  DemandeDimension demande;
  demande.largeur = Ecart(d.Xmin, d.Xmax);
  demande.hauteur = Ecart(d.Ymin, d.Ymax);
  demande.courseX = machine.courseX;
  demande.courseY = machine.courseY;
  etapes.Dimensionne(demande);
  d.EchelleX = demande.rapportX;
  d.EchelleY = demande.rapportY;
  if (demande.rapportX == 1.0 && demande.rapportY == 1.0) return;
  for (PointTrace& point : d.TraceInitial) {
    point.X = static_cast<float>(point.X * demande.rapportX);
    point.Y = static_cast<float>(point.Y * demande.rapportY);
  }
  MesureDocument(d);
}

}  // namespace

bool EstProjet(const std::string& chemin) { return ExtensionDe(chemin) == "OVL"; }

std::vector<std::pair<std::string, std::string>> ClesOuverture(const std::string& chemin) {
  return {{"Fichier", chemin}};
}

RefusFichier RefusLecture(std::int32_t numero, const std::string& chemin, const ContenuLu& contenu) {
  RefusFichier refus = RefusErreur(numero);
  refus.suite = " (" + ExtensionDe(chemin) + ")";
  // A drawing that is read and too small has no message of a failure: its line names the file.
  const std::string message = numero == ErreurTropPeuDePoints ? NomDe(chemin) : contenu.message;
  if (numero != SansMessage && !message.empty()) refus.suite += "\n" + message;
  refus.fichier = chemin;
  refus.ligne = contenu.rapport.Ligne;
  return refus;
}

DessinLu LitDessin(const std::string& chemin, const Reglages& reglages,
                   const std::function<void(double)>& avancement, const SouhaitLecture& souhait) {
  DessinLu lu;
  lu.chemin = chemin;
  lu.extension = ExtensionDe(chemin);
  lu.cles = ClesOuverture(chemin);
  if (EstProjet(chemin)) {
    LitProjetEntier(lu);
  } else {
    LitEtranger(lu, reglages, avancement, souhait);
  }
  return lu;
}

void PrepareDessin(Document& document, const MesuresMachine& machine, const EtapesOuverture& etapes) {
  Dimensionne(document, machine, etapes);
  etapes.Nettoie();
  NettoieDocument(document, machine);
  MesureDocument(document);
  if (document.NbPoints < SeuilOptimisation) etapes.Optimise(document);
  for (PointTrace& point : document.TraceInitial) {
    point.X += Marge;
    point.Y += Marge;
  }
}

}  // namespace ovelin
