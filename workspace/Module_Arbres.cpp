#include "workspace/Module_Arbres.h"

#include <algorithm>
#include <span>
#include <unordered_map>
#include <unordered_set>

#include "base/Indices.h"
#include "core/DocumentCourant.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "toolpath/Module_Sequence.h"
#include "workspace/NomChemin.h"

namespace ovelin {

namespace {

constexpr const char* FormatTaille = "#0.0";
constexpr const char* FormatPoint = "0.000";
constexpr const char* Points = "pts";

Noeud Racine(CleTexte cle, std::int32_t couleur) {
  Noeud n;
  n.texte = Traduire(Textes::ArbreSequences);
  n.cle = Traduire(cle);
  n.couleur = couleur;
  n.developpe = true;
  n.image = "Closed";
  n.imageDeveloppe = "Open";
  return n;
}

std::string Taille(double largeur, double hauteur) {
  return Formate(largeur, FormatTaille) + "x" + Formate(hauteur, FormatTaille);
}

// Width and height of a run of points, mm.
std::pair<double, double> Dimensions(std::span<const PointTrace> points) {
  if (points.empty()) return {0, 0};
  float x0 = points.front().X, x1 = x0, y0 = points.front().Y, y1 = y0;
  for (const PointTrace& p : points) {
    x0 = std::min(x0, p.X), x1 = std::max(x1, p.X);
    y0 = std::min(y0, p.Y), y1 = std::max(y1, p.Y);
  }
  return {Ecart(x0, x1), Ecart(y0, y1)};
}

// A stretch of an array, cut to what the array holds now.
std::span<const PointTrace> Etendu(const std::vector<PointTrace>& points, const GroupeArbre& g) {
  const std::size_t debut = std::min(base::Indice(std::max(g.premier, 0)), points.size());
  const std::size_t fin = std::min(debut + base::Indice(std::max(g.nombre, 0)), points.size());
  return std::span(points).subspan(debut, fin - debut);
}

std::unordered_set<std::uint32_t> Selectionnees() {
  std::unordered_set<std::uint32_t> codes;
  for (const SequenceInfo& s : Sequences) {
    if (s.Selection != Faux) codes.insert(s.Code.Cle());
  }
  return codes;
}

}  // namespace

std::optional<Noeud> Arbre::Groupe(std::size_t groupe) const {
  if (groupe >= groupes.size()) return std::nullopt;
  const GroupeArbre& g = groupes[groupe];
  Noeud n;
  n.niveau = NiveauNoeud::Sequence;
  n.texte = g.texte;
  n.cle = g.cle;
  n.couleur = g.couleur;
  n.developpe = n.visible = g.selectionne;
  return n;
}

std::string Arbre::Nom(std::size_t groupe) const {
  if (groupe >= groupes.size()) return "";
  const GroupeArbre& g = groupes[groupe];
  const std::size_t fiche = base::Indice(g.fiche);
  const std::size_t source = base::Indice(g.source);
  if (fiche >= Sequences.size() || source >= TraceInitial.size()) return "";
  if (Sequences[fiche].Code != g.code || TraceInitial[source].Seq != g.code) return "";
  return NomChemin(PointsDe(TraceInitial, EtendueDepuis(TraceInitial, source)), Sequences[fiche],
                   TexteCalque(Complements.De(g.code), partage), Complements.De(g.code).Ilot);
}

std::optional<std::uint32_t> Arbre::CouleurCalque(std::size_t groupe) const {
  if (groupe >= groupes.size() || partage == PartageCalques::Aucun) return std::nullopt;
  return Complements.De(groupes[groupe].code).Couleur;
}

const PointTrace* Arbre::PointDocument(std::size_t groupe, std::size_t rang) const {
  if (groupe >= groupes.size()) return nullptr;
  const GroupeArbre& g = groupes[groupe];
  const std::vector<PointTrace>* points = &TraceInitial;
  if (sorte == SorteArbre::Decale) {
    const auto entree = base::Indice(g.entree);
    if (entree >= TraceDecale.size()) return nullptr;
    points = &TraceDecale[entree].Points;
  }
  const std::size_t index = base::Indice(g.premier) + rang;
  if (rang >= base::Indice(g.nombre) || index >= points->size()) return nullptr;
  return points->data() + index;
}

std::optional<Noeud> Arbre::Point(std::size_t groupe, std::size_t rang) const {
  const PointTrace* p = PointDocument(groupe, rang);
  if (p == nullptr) return std::nullopt;
  const GroupeArbre& g = groupes[groupe];
  Noeud n;
  n.niveau = NiveauNoeud::Point;
  n.texte = Formate(p->X, FormatPoint) + " | " + Formate(p->Y, FormatPoint);
  n.cle = g.cle + ":" + std::to_string(rang);
  n.couleur = p->Cde == CodePD ? g.couleur : CouleurAutreCde;
  n.etiquette = g.premier + base::Compte(rang);
  n.gras = n.visible = g.selectionne && rang == 0;
  return n;
}

std::size_t Arbre::PointsDuPli(std::size_t groupe) const {
  if (groupe >= groupes.size()) return 0;
  const std::size_t nombre = base::Indice(std::max(groupes[groupe].nombre, 0));
  return nombre - std::min(nombre, PointsSansPli);
}

std::optional<Noeud> Arbre::Pli(std::size_t groupe) const {
  const std::size_t nombre = PointsDuPli(groupe);
  if (nombre == 0) return std::nullopt;
  const GroupeArbre& g = groupes[groupe];
  Noeud n;
  n.niveau = NiveauNoeud::Pli;
  n.texte = "+ " + std::to_string(nombre) + " " + Traduire(Textes::ArbreAutresPoints);
  n.cle = g.cle + ":+";
  n.couleur = g.couleur;
  return n;
}

void Remplissage_Trace_Initial(Arbre& arbre) {
  arbre = Arbre{};
  arbre.sorte = SorteArbre::Initial;
  arbre.racine = Racine(Textes::ArbreInitial, Regl.CouleurInitial);
  arbre.partage = PartageDe(Doc);
  std::int32_t numero = 0;
  std::unordered_map<std::uint32_t, std::int32_t> fiches;
  for (std::size_t i = 0; i < Sequences.size(); ++i) fiches.try_emplace(Sequences[i].Code.Cle(), base::Compte(i));
  for (const Etendue& e : EtenduesSequences()) {
    // The single blank record of an emptied drawing is no path.
    if (e.code == Code2{} || e.code == CodeAucun) continue;
    const auto [largeur, hauteur] = Dimensions(PointsDe(TraceInitial, e));
    GroupeArbre g;
    g.code = e.code;
    g.premier = g.source = base::Compte(e.premier);
    if (const auto fiche = fiches.find(e.code.Cle()); fiche != fiches.end()) g.fiche = fiche->second;
    g.nombre = base::Compte(e.nombre);
    g.couleur = Regl.CouleurInitial;
    const std::string n = std::to_string(++numero);
    // The number makes the key unique where a code comes in two runs.
    g.cle = e.code.Texte() + "-" + n;
    g.texte = n + ":" + std::to_string(e.nombre) + Points + " " + Taille(largeur, hauteur);
    arbre.groupes.push_back(std::move(g));
  }
}

void Remplissage_Trace_Decale(Arbre& arbre) {
  arbre = Arbre{};
  arbre.sorte = SorteArbre::Decale;
  arbre.racine = Racine(Textes::ArbreOutil, Regl.CouleurDecalage);
  arbre.partage = PartageDe(Doc);
  const auto total = std::count_if(TraceDecale.begin(), TraceDecale.end(),
                                   [](const SequenceDecalee& d) { return !d.Points.empty(); });
  const IndexCodes index = IndexDocument();
  ProprietesSequence proprietes;
  Code2 dernier = CodeAucun;
  std::optional<std::size_t> source, fiche;  // first point and record of the path of that code
  std::int32_t numero = 0;
  for (std::size_t i = 0; i < TraceDecale.size(); ++i) {
    const SequenceDecalee& d = TraceDecale[i];
    if (d.Points.empty()) continue;
    if (d.Seq != dernier) {
      LitSequence(index, d.Seq, proprietes);
      source = index.PremierPoint(d.Seq);
      fiche = index.Fiche(d.Seq);
    }
    dernier = d.Seq;
    GroupeArbre g;
    g.code = d.Seq;
    g.entree = base::Compte(i);
    g.source = source ? base::Compte(*source) : -1;
    g.fiche = fiche ? base::Compte(*fiche) : -1;
    g.nombre = base::Compte(d.Points.size());
    g.couleur = proprietes.Fraiser == Faux ? CouleurNonFraisee : Regl.CouleurDecalage;
    const std::string n = std::to_string(++numero);
    g.cle = d.Seq.Texte() + "-" + n;
    g.texte = "-" + n + "/" + std::to_string(total) + ":" + std::to_string(g.nombre) +
              " points PF:" + TexteNombre(proprietes.Profondeur);
    arbre.groupes.push_back(std::move(g));
  }
}

std::int32_t MarqueSelection(Arbre& arbre) {
  const std::unordered_set<std::uint32_t> codes = Selectionnees();
  std::int32_t derniere = -1;
  for (std::size_t i = 0; i < arbre.groupes.size(); ++i) {
    GroupeArbre& g = arbre.groupes[i];
    g.selectionne = codes.contains(g.code.Cle());
    if (g.selectionne) derniere = base::Compte(i);
  }
  return derniere;
}

std::string RefaitTitre(const std::string& titre, double largeur, double hauteur) {
  const std::size_t place = titre.find(Points);
  if (place == std::string::npos) return titre;
  return titre.substr(0, place) + Points + " " + Taille(largeur, hauteur);
}

void RefaitTitres(Arbre& arbre, Code2 code) {
  if (arbre.sorte != SorteArbre::Initial) return;
  for (GroupeArbre& g : arbre.groupes) {
    if (g.code != code) continue;
    const auto [largeur, hauteur] = Dimensions(Etendu(TraceInitial, g));
    g.texte = RefaitTitre(g.texte, largeur, hauteur);
  }
}

ResultatClic ClicPoint(const Arbre& arbre, std::size_t groupe, std::size_t rang) {
  ResultatClic r;
  const PointTrace* p = arbre.PointDocument(groupe, rang);
  if (p == nullptr) return r;
  r.fait = true;
  r.annuleEdition = arbre.sorte == SorteArbre::Initial;
  r.croix = *p;
  // The points of the tool path carry a number for the eye where those of the drawing carry the code.
  r.croix->Seq = arbre.groupes[groupe].code;
  PointCourantX = p->X;
  PointCourantY = p->Y;
  r.TB_X = Formate(p->X, FormatPoint);
  r.TB_Y = Formate(p->Y, FormatPoint);
  SeqCourante = r.croix->Seq;
  Svc.Panneau(PanneauEtat::Fichier, SeqCourante.Texte());
  return r;
}

ResultatClic ClicSequence(const Arbre& arbre, std::size_t groupe) {
  ResultatClic r;
  if (groupe >= arbre.groupes.size()) return r;
  r.fait = true;
  r.annuleEdition = arbre.sorte == SorteArbre::Initial;
  r.initSeq = true;
  DeselectionneTout();
  BasculeSelection(arbre.groupes[groupe].code);
  SeqCourante = arbre.groupes[groupe].code;
  Svc.Panneau(PanneauEtat::Fichier, SeqCourante.Texte());
  return r;
}

}  // namespace ovelin
