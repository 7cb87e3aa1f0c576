// Commands that open a drawing and give something back: info, gcode, save, export, trace, plan.
#include "app/cli/CommandesDessin.h"

#include <charconv>
#include <cmath>
#include <span>
#include <utility>

#include "app/cli/PlanCarte.h"
#include "base/Indices.h"
#include "controller/ClsCdeZENIK.h"
#include "controller/ListeStockee.h"
#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "core/Nombres.h"
#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "image/ImageDocument.h"
#include "machine/Module_Table.h"
#include "machine/TableCourante.h"
#include "run/AvisPlan.h"
#include "run/CumulLignes.h"
#include "run/FiguresPlan.h"
#include "run/Module_Dialecte.h"
#include "run/Module_GCode.h"
#include "run/Module_Planificateur.h"
#include "run/NoyauPlan.h"
#include "toolpath/Module_Outils.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/chemins/Calques.h"
#include "workspace/Module_Image.h"

namespace ovelin::cli {

namespace {

bool Fermee(const std::vector<PointTrace>& points, const Etendue& e) {
  return e.nombre > 1 && EstFermee(PointsDe(std::span(points), e));
}

// A 32-bit value as the double with the same shortest text: 20.8, not 20.799999237060547.
double Court(float v) {
  char tampon[32];
  const auto fin = std::to_chars(tampon, tampon + sizeof tampon, v);
  double d = 0;
  std::from_chars(tampon, fin.ptr, d);
  return d;
}

Json Bornes(float xmin, float xmax, float ymin, float ymax) {
  return Json{{"xmin", Court(xmin)}, {"xmax", Court(xmax)}, {"ymin", Court(ymin)}, {"ymax", Court(ymax)}};
}

// JSON text of large point lists is written by hand: the shortest number that reads back, no tree in memory.
void AjouteNombre(std::string& sortie, float v) {
  char tampon[32];
  const auto fin = std::to_chars(tampon, tampon + sizeof tampon, v);
  sortie.append(tampon, fin.ptr);
}

void AjouteTexte(std::string& sortie, const std::string& texte) {
  sortie += Json(texte).dump(-1, ' ', true, Json::error_handler_t::replace);
}

void AjoutePoint(std::string& sortie, const PointTrace& p, bool avecSeq) {
  sortie += '[';
  AjouteNombre(sortie, p.X);
  sortie += ',';
  AjouteNombre(sortie, p.Y);
  sortie += ',';
  AjouteTexte(sortie, p.Cde.Texte());
  if (avecSeq) {
    sortie += ',';
    AjouteTexte(sortie, p.Seq.Texte());
  }
  sortie += ']';
}

void AjouteCalque(std::string& sortie, const Complement& c) {
  if (!c.Calque.empty()) {
    sortie += ",\"calque\":";
    AjouteTexte(sortie, c.Calque);
  }
  if (c.Couleur) sortie += ",\"couleur\":\"" + TexteCouleur(*c.Couleur) + "\"";
}

std::string TraceEnJson() {
  std::string sortie = "{\"sequences\":[";
  const IndexCodes index = IndexDocument();
  bool premier = true;
  for (const Etendue& e : EtenduesSequences()) {
    ProprietesSequence p;
    LitSequence(index, e.code, p);
    sortie += premier ? "\n" : ",\n";
    premier = false;
    sortie += "{\"code\":";
    AjouteTexte(sortie, e.code.Texte());
    sortie += std::string(",\"closed\":") + (Fermee(TraceInitial, e) ? "true" : "false");
    sortie += ",\"decalage\":" + std::to_string(p.Decalage);
    sortie += std::string(",\"poche\":") + (p.Poche != Faux ? "true" : "false");
    sortie += std::string(",\"fraiser\":") + (p.Fraiser != Faux ? "true" : "false");
    sortie += ",\"profondeur\":" + Json(p.Profondeur).dump();
    if (Complements.De(e.code).Ilot) sortie += ",\"ilot\":true";
    AjouteCalque(sortie, Complements.De(e.code));
    sortie += ",\"points\":[";
    for (std::size_t i = e.premier; i < e.Fin(); ++i) {
      if (i > e.premier) sortie += ',';
      AjoutePoint(sortie, TraceInitial[i], false);
    }
    sortie += "]}";
  }
  sortie += "],\n\"trace\":[";
  premier = true;
  for (const SequenceDecalee& s : TraceDecale) {
    sortie += premier ? "\n" : ",\n";
    premier = false;
    sortie += "{\"code\":";
    AjouteTexte(sortie, s.Seq.Texte());
    sortie += ",\"points\":[";
    for (std::size_t i = 0; i < s.Points.size(); ++i) {
      if (i > 0) sortie += ',';
      AjoutePoint(sortie, s.Points[i], true);
    }
    sortie += "]}";
  }
  sortie += "]}\n";
  return sortie;
}

// "X,Y,Z" in mm, points as decimal marks.
bool LitPosition(const std::string& texte, double& x, double& y, double& z) {
  const std::size_t un = texte.find(',');
  const std::size_t deux = un == std::string::npos ? un : texte.find(',', un + 1);
  if (deux == std::string::npos) return false;
  const auto a = NombreDuTexte(texte.substr(0, un));
  const auto b = NombreDuTexte(texte.substr(un + 1, deux - un - 1));
  const auto c = NombreDuTexte(texte.substr(deux + 1));
  if (!a || !b || !c) return false;
  x = *a;
  y = *b;
  z = *c;
  return true;
}

std::string LignesEnCsv(const PlanCarte& plan) {
  std::string sortie = "X,Y,Z,dX,dY,dZ,Vitesse,Ticks,N,P,T\n";
  auto mouvement = plan.lignes.begin();
  for (const Deplacement& d : LignesMues(Plan)) {
    const Mouvement& m = *mouvement++;
    for (const float v : {d.X, d.Y, d.Z}) {
      AjouteNombre(sortie, v);
      sortie += ',';
    }
    for (const std::int32_t v : {d.dX, d.dY, d.dZ}) sortie += std::to_string(v) + ',';
    AjouteNombre(sortie, d.Vitesse);
    for (const std::int32_t v : {m.Ticks, m.N, m.P}) sortie += ',' + std::to_string(v);
    sortie += ',';
    AjouteNombre(sortie, EnFloat(m.T));
    sortie += '\n';
  }
  return sortie;
}

// A job that leaves paths out is one that somebody must know of.
void AvertitSansTrajet() {
  const CompteUsinage usinage = CompteUsinageDe(Doc, ProfPasse);
  if (usinage.sansTrajet.empty()) return;
  std::fprintf(stderr, "%s %s\n", Traduire(Textes::SequencesEtroites).c_str(),
               TexteSansTrajet(usinage.sansTrajet).c_str());
}

// Cuts that the machine in force can't reach are told; the job may be meant for another one.
void AvertitHorsCourse() {
  const FiguresPlan f = FiguresDe(LignesDe(Plan));
  if (!f.coupe) return;
  const auto mm = [](double v) { return Formate(v, "0.0##"); };
  const auto dit = [&mm](const char* axe, double min, double max, double course) {
    if (min >= 0 && max <= course) return;
    std::fprintf(stderr, "%s %s: %s ... %s mm (0 ... %s mm)\n", Traduire(Textes::ParcoursHorsCourse).c_str(), axe,
                 mm(min).c_str(), mm(max).c_str(), mm(course).c_str());
  };
  dit("X", f.xmin, f.xmax, double{CourseX});
  dit("Y", f.ymin, f.ymax, double{CourseY});
}

// The way from the machine's place on, which is row 1, at the speeds of the rows.
CumulLignes CumulDuPlan() {
  const auto lignes = LignesDe(Plan);
  CumulLignes cumul;
  if (lignes.empty()) return cumul;
  cumul.DernierX = lignes.front().X;
  cumul.DernierY = lignes.front().Y;
  cumul.DernierZ = lignes.front().Z;
  for (const Deplacement& d : lignes.subspan(1)) cumul.Va(d.X, d.Y, d.Z, d.Vitesse);
  return cumul;
}

Json CalqueEnJson(const CalqueDessin& calque) {
  Json objet{{"name", calque.nom}, {"sequences", calque.codes.size()}};
  if (calque.couleur) objet["color"] = TexteCouleur(*calque.couleur);
  return objet;
}

// What stands in the way of a job, and what is surely wrong in it; the latter is told alone.
int JugePlan(Contexte& contexte) {
  if (const auto refus = VerifieHautDeg()) return Echec(contexte, refus->cle, refus->suite);
  for (const AvisPlan& avis : AvisDuPlan()) std::fprintf(stderr, "%s\n", avis.texte.c_str());
  return 0;
}

}  // namespace

int Info(Contexte& contexte, const std::string& dessin) {
  ContenuLu lu;
  if (const int etat = OuvreDessin(contexte, dessin, &lu)) return etat;
  std::int32_t fermees = 0;
  std::int32_t nombre = 0;
  std::int32_t ilots = 0;
  for (const Etendue& e : EtenduesSequences()) {
    ++nombre;
    if (Fermee(TraceInitial, e)) ++fermees;
    if (Complements.De(e.code).Ilot) ++ilots;
  }
  Json objet;
  objet["format"] = lu.rapport.Format;
  objet["points"] = NbPoints;
  objet["sequences"] = nombre;
  objet["closed"] = fermees;
  objet["open"] = nombre - fermees;
  if (ilots > 0) objet["islands"] = ilots;
  objet["bounds"] = Bornes(Xmin, Xmax, Ymin, Ymax);
  objet["codes"] = {PlusPetitCode().Texte(), PlusGrandCode().Texte()};
  if (const std::vector<CalqueDessin> calques = CalquesDe(Doc); !calques.empty()) {
    objet["layers"] = Json::array();
    for (const CalqueDessin& c : calques) objet["layers"].push_back(CalqueEnJson(c));
  }
  objet["skipped"] = Json::object();
  for (const auto& [genre, combien] : lu.rapport.Ignores) objet["skipped"][genre] = combien;
  objet["message"] = lu.message;
  objet["read"] = Json{
      {"points", lu.points}, {"sequences", lu.sequences}, {"bounds", Bornes(lu.xmin, lu.xmax, lu.ymin, lu.ymax)}};
  return Resultat(contexte, objet);
}

int GCode(Contexte& contexte, const std::string& dessin, const std::string& sortie) {
  if (const int etat = VerifieSortie(contexte, sortie, "", {dessin})) return etat;
  LitSortieNC();
  const auto dialecte = DialecteEnVigueur();  // one that can't be had is told before the drawing is read
  if (!dialecte) return EchecBoite(contexte);
  if (const int etat = OuvreDessin(contexte, dessin)) return etat;
  if (const int etat = JugePlan(contexte)) return etat;
  EcritureNC ecriture;
  if (!EcritGCode(sortie, ecriture)) return EchecBoite(contexte);
  AvertitSansTrajet();
  AvertitHorsCourse();
  Json objet{{"rows", ecriture.deplacements},
             {"lines", ecriture.lignes},
             {"length", ecriture.LongueurNC},
             {"seconds", ecriture.TempsNC}};
  if (!dialecte->prescrit) {
    objet["dialect"] = dialecte->nom;
    objet["arcs"] = ecriture.arcs;
  }
  return Resultat(contexte, objet);
}

int Enregistre(Contexte& contexte, const std::string& dessin, const std::string& sortie) {
  if (const int etat = VerifieSortie(contexte, sortie, "OVL", {dessin})) return etat;
  if (const int etat = OuvreDessin(contexte, dessin)) return etat;
  const std::string raison = EnregistreProjet(sortie);
  if (!raison.empty()) {
    return Echec(contexte, Textes::EcritureRefusee, "\n" + sortie + ": " + raison, sortie);
  }
  return Resultat(contexte, Json{{"file", sortie}, {"points", NbPoints}, {"sequences", NbSequences()}});
}

int Exporte(Contexte& contexte, const std::string& dessin, const std::string& sortie, const std::string& source) {
  const std::string extension = ExtensionDe(sortie);
  const bool image = extension == "SVG" || extension == "PNG";
  if (!image && extension != "DXF" && extension != "DAT") {
    return Echec(contexte, Textes::ExportExtension, "", sortie);
  }
  if (const int etat = VerifieSortie(contexte, sortie, "", {dessin})) return etat;
  if (const int etat = OuvreDessin(contexte, dessin)) return etat;
  // Several paths go into numbered files.
  for (std::size_t i = 1; extension == "DAT" && i <= TraceDecale.size(); ++i) {
    const std::string numerotee = CheminNumerote(sortie, base::Compte(i));
    if (const int etat = VerifieSortie(contexte, numerotee, "", {dessin})) return etat;
  }
  if (image) {
    OptionsScene options = OptionsDuDocument(false, false);
    options.dessin = source != "outil";
    options.trajet = source != "initial";
    const std::string octets = ImageDocument(Doc, options, ConstruitPalette(Regl, Theme::Clair),
                                             extension == "SVG" ? FormatImage::Svg : FormatImage::Png);
    if (octets.empty()) return Echec(contexte, Textes::EcritureRefusee, "\n" + sortie, sortie);
    if (const int etat = EcritResultat(contexte, sortie, octets)) return etat;
  } else if (!ovelin::Exporte(sortie, source == "outil" ? 1 : 0)) {
    return EchecBoite(contexte);
  }
  return Resultat(contexte, Json{{"file", sortie}});
}

int Trace(Contexte& contexte, const std::string& dessin, const std::string& sortie) {
  if (const int etat = VerifieSortie(contexte, sortie, "json", {dessin})) return etat;
  if (const int etat = OuvreDessin(contexte, dessin)) return etat;
  if (const int etat = EcritResultat(contexte, sortie, TraceEnJson())) return etat;
  return Resultat(contexte, Json{{"file", sortie}, {"sequences", NbSequences()}, {"traces", TraceDecale.size()}});
}

namespace {

// The files of a plan, before anything is read: none is the drawing, none is another of them.
int JugeSorties(const Contexte& contexte, const std::string& dessin, const OptionsPlan& o) {
  const std::pair<const std::string&, const char*> sorties[] = {{o.lignes, "csv"}, {o.records, ""}, {o.flash, ""}};
  std::vector<std::string> avant;
  for (const auto& [sortie, extension] : sorties) {
    if (sortie.empty()) continue;
    if (const int etat = VerifieSortie(contexte, sortie, extension, {dessin})) return etat;
    for (const std::string& autre : avant) {
      if (CheminComplet(autre) == CheminComplet(sortie) && !sortie.starts_with("/dev/")) {
        return Echec(contexte, Textes::SortieEstEntree, " " + sortie, sortie);
      }
    }
    avant.push_back(sortie);
  }
  return Fait;
}

int EcritPlan(const Contexte& contexte, const OptionsPlan& o, const PlanCarte& plan) {
  const std::span liste(reinterpret_cast<const std::uint8_t*>(plan.liste.data()), plan.liste.size());
  if (!o.flash.empty() && liste.size() > ListeMaxi) {
    return Echec(contexte, Textes::ListeTropLongue, " " + std::to_string(LitListe(liste).tiennent), o.flash);
  }
  if (!o.lignes.empty()) {
    if (const int etat = EcritResultat(contexte, o.lignes, LignesEnCsv(plan))) return etat;
  }
  if (!o.records.empty()) {
    if (const int etat = EcritResultat(contexte, o.records, plan.records)) return etat;
  }
  return o.flash.empty() ? Fait : EcritResultat(contexte, o.flash, plan.liste);
}

}  // namespace

int Planifie(Contexte& contexte, const std::string& dessin, const OptionsPlan& options) {
  double x = 0;
  double y = 0;
  double z = 0;
  if (!options.position.empty() && !LitPosition(options.position, x, y, z)) {
    std::fprintf(stderr, "--pos X,Y,Z\n");
    return Usage;
  }
  if (const int etat = JugeSorties(contexte, dessin, options)) return etat;
  if (const int etat = OuvreDessin(contexte, dessin)) return etat;
  const auto resolutions = ResolutionsTable();
  CdeZENIK->FixeResolutions(resolutions[0], resolutions[1], resolutions[2]);
  CdeZENIK->FixePosition(x, y, z);
  if (const int etat = JugePlan(contexte)) return etat;
  if (!Tableau_Decoupe()) return EchecBoite(contexte);
  AvertitSansTrajet();
  AvertitHorsCourse();
  double sansRampe = 0;
  double vMax = 0;
  std::int16_t reserve = 0;
  Vitesse_Decoupe_H(sansRampe, vMax, reserve);
  const CumulLignes cumul = CumulDuPlan();  // before the rows' speeds are lowered
  const PlanCarte plan = CalculePlanCarte();
  if (const int etat = EcritPlan(contexte, options, plan)) return etat;
  return Resultat(contexte, Json{{"rows", NbDeplacements - 1},
                                 {"records", plan.nombreRecords},
                                 {"seconds", cumul.TempsNC},
                                 {"foreseen", plan.prevu},
                                 {"length", cumul.LongueurNC},
                                 {"VSansRampe", sansRampe},
                                 {"VMax", vMax}});
}

}  // namespace ovelin::cli
