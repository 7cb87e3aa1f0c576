#include "app/cli/Operations.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <set>
#include <stdexcept>
#include <utility>

#include "base/Indices.h"
#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "core/Nombres.h"
#include "core/Reglages.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "core/ValeursCles.h"
#include "toolpath/Module_Copie.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Outils.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/chemins/Calques.h"
#include "workspace/Module_Image.h"

namespace ovelin::cli {

namespace {

// An argument that is missing or of the wrong kind. Caught in Opere, never seen outside this file.
struct MauvaisArgument : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// The arguments of one operation, each asked for with its kind.
class Arguments {
 public:
  explicit Arguments(const Json& objet) : objet_(objet) {}

  // An argument that no operation has asked for is a slip of the pen, and would do nothing.
  void VerifieNoms() const {
    for (const auto& [nom, valeur] : objet_.items()) {
      if (nom != "op" && !demandes_.contains(nom)) throw MauvaisArgument(nom + ": unknown argument");
    }
  }

  [[nodiscard]] bool A(const char* nom) const {
    demandes_.insert(nom);
    return objet_.contains(nom);
  }
  [[nodiscard]] double Nombre(const char* nom) const {
    const Json& v = Valeur(nom);
    if (!v.is_number()) throw MauvaisArgument(std::string(nom) + ": number");
    const double n = v.get<double>();
    if (!(std::fabs(n) <= NombreMax)) throw MauvaisArgument(std::string(nom) + ": number within 1e7");
    return n;
  }
  [[nodiscard]] float Reel(const char* nom) const { return static_cast<float>(Nombre(nom)); }
  [[nodiscard]] std::int32_t Entier(const char* nom) const {
    const double n = Nombre(nom);
    if (n != std::floor(n) || std::fabs(n) > std::numeric_limits<std::int32_t>::max()) {
      throw MauvaisArgument(std::string(nom) + ": integer");
    }
    return static_cast<std::int32_t>(n);
  }
  [[nodiscard]] bool Booleen(const char* nom) const {
    const Json& v = Valeur(nom);
    if (!v.is_boolean()) throw MauvaisArgument(std::string(nom) + ": true or false");
    return v.get<bool>();
  }
  [[nodiscard]] std::string Texte(const char* nom) const {
    const Json& v = Valeur(nom);
    if (!v.is_string()) throw MauvaisArgument(std::string(nom) + ": text");
    return v.get<std::string>();
  }
  // A field of a window: its text as typed, or a number.
  [[nodiscard]] std::string Champ(const char* nom) const {
    const Json& v = Valeur(nom);
    return v.is_number() ? TexteNombre(v.get<double>()) : Texte(nom);
  }
  // Of a path that is there.
  [[nodiscard]] Code2 Code(const char* nom) const {
    const Code2 code = EnCode(Texte(nom));
    if (!IndexDocument().Fiche(code))
      throw MauvaisArgument(std::string(nom) + ": no path \"" + code.Texte() + "\"");
    return code;
  }
  [[nodiscard]] Code2 Marque(const char* nom) const { return EnCode(Texte(nom)); }
  [[nodiscard]] std::vector<Code2> Codes(const char* nom) const {
    std::vector<Code2> codes;
    const Json& v = Valeur(nom);
    if (!v.is_array()) throw MauvaisArgument(std::string(nom) + ": list of codes");
    for (const Json& c : v) {
      if (!c.is_string()) throw MauvaisArgument(std::string(nom) + ": list of codes");
      codes.push_back(EnCode(c.get<std::string>()));
    }
    return codes;
  }
  // Points [[x, y], [x, y, "PC"] ...] with that code.
  [[nodiscard]] std::vector<PointTrace> Points(const char* nom, Code2 code) const {
    std::vector<PointTrace> points;
    const Json& v = Valeur(nom);
    if (!v.is_array()) throw MauvaisArgument(std::string(nom) + ": list of points");
    for (const Json& p : v) {
      const bool bon = p.is_array() && p.size() >= 2 && p[0].is_number() && p[1].is_number() &&
                       (p.size() < 3 || p[2].is_string()) && std::fabs(p[0].get<double>()) <= NombreMax &&
                       std::fabs(p[1].get<double>()) <= NombreMax;
      if (!bon) throw MauvaisArgument(std::string(nom) + ": [x, y] or [x, y, \"PC\"]");
      points.push_back(
          {p[0].get<float>(), p[1].get<float>(), p.size() < 3 ? CodePD : Code2(p[2].get<std::string>()), code});
    }
    return points;
  }

 private:
  [[nodiscard]] const Json& Valeur(const char* nom) const {
    demandes_.insert(nom);
    const auto v = objet_.find(nom);
    if (v == objet_.end()) throw MauvaisArgument(std::string(nom) + ": missing");
    return *v;
  }
  static Code2 EnCode(const std::string& texte) {
    if (texte.size() != 2) throw MauvaisArgument("code: two characters");
    return Code2(texte);
  }
  static constexpr double NombreMax = 1e7;  // mm, as far as drawings go
  const Json& objet_;
  mutable std::set<std::string, std::less<>> demandes_;  // by the operation that runs
};

// Procedures that move points and leave the traces to their caller.
template <class F>
auto AvecTraces(F f) {
  return [f](const Arguments& a) {
    f(a);
    RecalculDecalages();
    EncombrementGeneral();
    Modifie = Vrai;
    return true;
  };
}
// Procedures that do all of it themselves and can't refuse.
template <class F>
auto Simple(F f) {
  return [f](const Arguments& a) {
    f(a);
    return true;
  };
}

// What works on the selection does nothing without one.
template <class F>
auto SurSelection(F f) {
  return [f](const Arguments& a) {
    const bool choisie =
        std::any_of(Sequences.begin(), Sequences.end(), [](const SequenceInfo& s) { return s.Selection != Faux; });
    if (!choisie) throw MauvaisArgument("no path is selected");
    return f(a);
  };
}

// 1 along X, 3 along Y.
Direction LitDirection(const Arguments& a) {
  const std::int32_t direction = a.Entier("direction");
  if (direction != 1 && direction != 3) throw MauvaisArgument("direction: 1 or 3");
  return direction == 1 ? Direction::X : Direction::Y;
}

// A factor of 0 would make one point of a path.
float Facteur(const Arguments& a, const char* nom) {
  const float facteur = a.Reel(nom);
  if (facteur == 0) throw MauvaisArgument(std::string(nom) + ": not 0");
  return facteur;
}

PointTrace Centre(const Arguments& a) {
  PointTrace centre = CentreSelection();
  if (a.A("x")) centre.X = a.Reel("x");
  if (a.A("y")) centre.Y = a.Reel("y");
  return centre;
}

void Selectionne(const std::vector<Code2>& codes) {
  DeselectionneTout();
  const IndexCodes index = IndexDocument();
  for (const Code2 code : codes) {
    const auto fiche = index.Fiche(code);
    if (!fiche) throw MauvaisArgument("codes: no path \"" + code.Texte() + "\"");
    Sequences[*fiche].Selection = Vrai;
  }
}

// By name, by colour, or both; without either the layers of the selection.
void SelectionneCalque(const Arguments& a) {
  const bool nomme = a.A("calque");
  const bool colore = a.A("couleur");
  const std::string nom = nomme ? NomDeCalque(a.Texte("calque")) : "";
  const std::string couleur = colore ? a.Texte("couleur") : "";
  if (!nomme && !colore) {
    if (!EtendSelectionAuxCalques(Doc)) throw MauvaisArgument("no path is selected");
    return;
  }
  std::vector<Code2> codes;
  for (const SequenceInfo& s : Sequences) {
    const Complement& c = Complements.De(s.Code);
    const bool meme = !colore || (c.Couleur && TexteCouleur(*c.Couleur) == couleur);
    if (meme && (!nomme || c.Calque == nom)) codes.push_back(s.Code);
  }
  if (codes.empty())
    throw MauvaisArgument((nomme ? "calque: no layer \"" + nom : "couleur: no path \"" + couleur) + "\"");
  Selectionne(codes);
}

void EcritFiche(const Arguments& a) {
  const Code2 code = a.Code("code");
  ProprietesSequence p;
  LitSequence(code, p);
  if (a.A("poche")) p.Poche = EnDrapeau(a.Booleen("poche"));
  if (a.A("fraiser")) p.Fraiser = EnDrapeau(a.Booleen("fraiser"));
  if (a.A("profondeur")) p.Profondeur = a.Nombre("profondeur");
  if (a.A("decalage")) {
    const std::int32_t d = a.Entier("decalage");
    if (d < 1 || d > 3) throw MauvaisArgument("decalage: 1, 2 or 3");
    p.Decalage = static_cast<std::int16_t>(d);
  }
  EcritSequence(code, p);
}

std::int16_t Cote(const Arguments& a) {
  const std::int32_t d = a.Entier("decalage");
  if (d < 1 || d > 3) throw MauvaisArgument("decalage: 1, 2 or 3");
  return static_cast<std::int16_t>(d);
}

std::int32_t Index(const Arguments& a, const char* nom, std::int32_t maximum) {
  const std::int32_t i = a.Entier(nom);
  if (i < 0 || i > maximum) throw MauvaisArgument(std::string(nom) + ": 0 to " + std::to_string(maximum));
  return i;
}

std::int32_t IndexPoint(const Arguments& a, std::int32_t derriere) {
  return Index(a, "index", base::Compte(TraceInitial.size()) - 1 + derriere);
}

void Insere(const Arguments& a) {
  const std::int32_t index = IndexPoint(a, 1);
  const Code2 cde = a.A("cde") ? a.Marque("cde") : CodePD;
  InserePoint(index, {a.Reel("x"), a.Reel("y"), cde, a.Code("seq")});
}

bool Texte(const Arguments& a) {
  std::int32_t style = 0;
  if (a.A("italique") && a.Booleen("italique")) style += pathwerk::StyleItalique;
  if (a.A("gras") && a.Booleen("gras")) style += pathwerk::StyleGras;
  return GenereTexte(a.Texte("texte"), a.Texte("police"), a.A("espace") ? a.Entier("espace") : 0, style);
}

bool Materiau(const Arguments& a) {
  const int rang = RangMateriau(a.Texte("materiau"));
  if (rang == 0) throw MauvaisArgument(Traduire(Textes::MateriauInconnu) + DansReglages(a.Texte("materiau")));
  if (const auto v = FicheIllisible(rang)) {
    throw MauvaisArgument(Traduire(Textes::ValeurRefusee) + " " + TexteValeur(*v));
  }
  AppliqueMateriau(rang);
  return true;
}

int NombreCopies(const Arguments& a, const char* nom) {
  constexpr std::int32_t CopiesMax = 10'000;
  const std::int32_t n = a.Entier(nom);
  if (n < 1 || n > CopiesMax) throw MauvaisArgument(std::string(nom) + ": 1 to " + std::to_string(CopiesMax));
  return n;
}

bool RepeteEnRangees(const Arguments& a) {
  return RepeteSelection(PosesDe(Reseau{NombreCopies(a, "colonnes"), NombreCopies(a, "rangees"),
                                        a.A("pasX") ? a.Nombre("pasX") : 0, a.A("pasY") ? a.Nombre("pasY") : 0}));
}

// A whole turn where no angle is given.
bool RepeteEnRond(const Arguments& a) {
  const int nombre = NombreCopies(a, "nombre");
  const double angle = a.A("angle") ? a.Nombre("angle") : 2 * Pi / nombre;
  const PointTrace centre = Centre(a);
  return RepeteSelection(PosesDe(ReseauTournant{nombre, angle, centre.X, centre.Y}));
}

bool Attaches(const Arguments& a) {
  VoeuAttaches voeu;
  if (a.A("nombre")) {
    voeu.nombre = NombreCopies(a, "nombre");
  } else {
    voeu.pas = a.Nombre("pas");
    if (!(voeu.pas > 0)) throw MauvaisArgument("pas: more than 0");
  }
  return PoseAttaches(voeu) > 0;
}

using Operation = std::function<bool(const Arguments&)>;

const std::vector<std::pair<std::string, Operation>>& Operations() {
  using A = const Arguments&;
  static const std::vector<std::pair<std::string, Operation>> Table{
      // selection
      {"SelectionneTout", Simple([](A) { SelectionneTout(); })},
      {"DeselectionneTout", Simple([](A) { DeselectionneTout(); })},
      {"InverseSelection", Simple([](A) { InverseSelection(); })},
      {"BasculeSelection", Simple([](A a) { BasculeSelection(a.Code("code")); })},
      {"SelectionPrecedente", Simple([](A) { SelectionPrecedente(); })},
      {"SelectionSuivante", Simple([](A) { SelectionSuivante(); })},
      {"Selectionne", Simple([](A a) { Selectionne(a.Codes("codes")); })},
      {"SelectionneCalque", Simple([](A a) { SelectionneCalque(a); })},
      // records and points
      {"EcritSequence", AvecTraces([](A a) { EcritFiche(a); })},
      {"ProfondeurPourTous", Simple([](A) { ProfondeurPourTous(); })},
      {"InserePoint", AvecTraces([](A a) { Insere(a); })},
      {"RemplaceSequence",
       AvecTraces([](A a) { RemplaceSequence(a.Code("code"), a.Points("points", a.Code("code"))); })},
      {"InverseSequence", AvecTraces([](A a) { InverseSequence(a.Code("code")); })},
      {"FermeSequences", SurSelection(AvecTraces([](A) { FermeSequences(); }))},
      {"SupprimeSelection", SurSelection(Simple([](A) { SupprimeSelection(); }))},
      // transforms
      {"DeplaceSelection",
       SurSelection(Simple([](A a) { Deplacement_Selection(LitDirection(a), a.Reel("distance")); }))},
      {"TourneSelection", SurSelection(Simple([](A a) {
         TourneSelection(a.Nombre("angle"), Centre(a));
         Deplacement_Selection(Direction::Aucune, 0);
       }))},
      {"EchelleSelection",
       SurSelection(AvecTraces([](A a) { EchelleSelection(Facteur(a, "facteurX"), Facteur(a, "facteurY")); }))},
      {"MiroirSelection",
       SurSelection(AvecTraces([](A a) { MiroirSelection(a.Entier("axe") == 0 ? AxeMiroir::X : AxeMiroir::Y); }))},
      {"CB_OK_Dimension", SurSelection([](A a) {
         return Dimensionne_Selection(a.Nombre("rapportX"), a.Nombre("rapportY"),
                                      a.A("proportions") && a.Booleen("proportions"));
       })},
      // copies
      {"CopieSelection", SurSelection([](A) { return CopieSelection(); })},
      {"ColleCopie", [](A a) { return ColleCopie(a.Nombre("dx"), a.Nombre("dy")); }},
      {"DupliqueSelection", SurSelection([](A a) { return DupliqueSelection(a.Nombre("dx"), a.Nombre("dy")); })},
      {"RepeteEnRangees", SurSelection([](A a) { return RepeteEnRangees(a); })},
      {"RepeteEnRond", SurSelection([](A a) { return RepeteEnRond(a); })},
      {"PlaceAuCoin", [](A) { return PlaceAuCoin(); }},
      {"CB_OKRecalage", Simple([](A a) { Recale(a.Nombre("x"), a.Nombre("y")); })},
      // properties of the selection and fields of the tool
      {"Option_Decal", SurSelection(Simple([](A a) { DecaleSelection(Cote(a)); }))},
      {"CB_Poche", SurSelection(Simple([](A a) { PocheSelection(a.Booleen("valeur")); }))},
      {"CB_Ilot", SurSelection(Simple([](A a) { IlotSelection(a.Booleen("valeur")); }))},
      {"CB_Fraiser", SurSelection(Simple([](A a) { FraiserSelection(a.Booleen("valeur")); }))},
      {"TB_Profondeur", SurSelection([](A a) { return ProfondeurSelection(a.Nombre("valeur")); })},
      {"TB_RayonFraise", [](A a) { return EntreRayonFraise(a.Champ("valeur")); }},
      {"TB_LargeurEncoche", [](A a) { return EntreLargeurEncoche(a.Champ("valeur")); }},
      {"TB_MiniEncoche", [](A a) { return EntreMiniEncoche(a.Champ("valeur")); }},
      {"TB_HautDeg", [](A a) { return LaisseHautDeg(a.Champ("valeur")) && EntreHautDeg(a.Champ("valeur")); }},
      {"TB_PCPoche", [](A a) { return EntrePCPoche(a.Champ("valeur")); }},
      {"TB_ProfPasse", [](A a) { return EntreProfPasse(a.Champ("valeur")); }},
      {"TB_AngleRampe", [](A a) { return EntreAngleRampe(a.Champ("valeur")); }},
      {"CB_BD", [](A a) { return Materiau(a); }},
      // attachment points
      {"AjouteAttache", [](A a) { return AjouteAttache(a.Reel("x"), a.Reel("y")); }},
      {"DeplaceAttache", [](A a) { return DeplaceAttache(a.Entier("index"), a.Reel("x"), a.Reel("y")); }},
      {"EnleveAttache", [](A a) { return EnleveAttache(a.Reel("x"), a.Reel("y")); }},
      {"PoseAttaches", SurSelection([](A a) { return Attaches(a); })},
      // order, clean-up, drag knife, text
      {"OrdonneTrajets", Simple([](A) { OrdonneTrajets(); })},
      {"mnu_Optimisation_Click", [](A) { return mnu_Optimisation_Click(); }},
      {"CB_Ordre",
       [](A a) { return ChangeOrdre(Index(a, "index", 1) == 0 ? PasOrdre::PlusTot : PasOrdre::PlusTard); }},
      {"CB_Depart", [](A a) { return ChangeDepart(IndexPoint(a, 0)); }},
      {"CB_Inversion", SurSelection(Simple([](A) { InverseSelectionnees(); }))},
      {"mnu_Nettoyage", [](A a) { return mnu_Nettoyage_Click(a.Reel("resolution")); }},
      {"NettoieTout", AvecTraces([](A a) { NettoieTout(a.Reel("resolution")); })},
      {"LisseSequence",
       [](A a) {
         const bool lissee = LisseSequence(a.Code("code"));
         RefaitDecalage(a.Code("code"));
         return lissee;
       }},
      {"CB_Lissage", SurSelection(Simple([](A) { LisseSelection(); }))},
      {"ChoixDepart", Simple([](A a) { ChoixDepart(Index(a, "index", 7)); })},
      {"CB_Prolongement", Simple([](A a) { RegleProlongement(a.Booleen("actif")); })},
      {"GenereTexte", [](A a) { return Texte(a); }},
      // traces
      {"CalculDecalage", Simple([](A a) { CalculDecalage(a.Code("code")); })},
      {"RecalculDecalages", [](A) { return RecalculDecalages(); }},
  };
  return Table;
}

}  // namespace

ResultatOperation Opere(Contexte& contexte, const Json& operation) {
  if (!operation.is_object() || !operation.contains("op") || !operation["op"].is_string()) {
    return {false, "op: missing"};
  }
  const std::string nom = operation["op"].get<std::string>();
  for (const auto& [connu, fait] : Operations()) {
    if (connu != nom) continue;
    contexte.derniere = BoiteMessage{};
    try {
      const Arguments arguments(operation);
      const bool faite = fait(arguments);
      arguments.VerifieNoms();
      if (faite) return {};
      // A refusal without a box is a beep.
      if (!contexte.derniere.texte.empty()) return {false, ""};
      return {false, Traduire(Textes::OperationRefusee) + " " +
                         operation.dump(-1, ' ', false, Json::error_handler_t::replace)};
    } catch (const MauvaisArgument& erreur) {
      return {false, erreur.what()};
    } catch (const Json::exception& erreur) {
      return {false, erreur.what()};
    }
  }
  return {false, Traduire(Textes::OperationInconnue)};
}

std::vector<std::string> NomsOperations() {
  std::vector<std::string> noms;
  for (const auto& [nom, fait] : Operations()) noms.push_back(nom);
  return noms;
}

int Edite(Contexte& contexte, const std::string& dessin, const std::string& operations, const std::string& sortie) {
  if (const int etat = VerifieSortie(contexte, sortie, "OVL", {dessin, operations})) return etat;
  std::string raison;
  const auto texte = LitFichierEntier(operations, &raison);
  if (!texte) {
    return Echec(contexte, Textes::LectureRefusee, "\n" + operations + ": " + raison, operations);
  }
  const Json liste = Json::parse(*texte, nullptr, false, true);
  if (!liste.is_array()) return Echec(contexte, Textes::JsonRefuse, " " + operations, operations);
  if (const int etat = OuvreDessin(contexte, dessin)) return etat;
  long rang = 0;
  for (const Json& operation : liste) {
    ++rang;
    const ResultatOperation r = Opere(contexte, operation);
    if (r.faite) continue;
    if (r.raison.empty()) return EchecBoite(contexte);
    const std::string nom = operation.is_object() && operation.contains("op") && operation["op"].is_string()
                                ? operation["op"].get<std::string>()
                                : "?";
    return Echec(contexte, "cli_edit",
                 NomDe(operations) + ": " + std::to_string(rang) + ". " + nom + ": " + r.raison, operations, rang);
  }
  // A project without a path could not be opened again.
  if (TraceInitial.size() < 2) return Echec(contexte, Textes::TropPeuDePoints, "", sortie);
  EncombrementGeneral();
  const std::string refus = EnregistreProjet(sortie);
  if (!refus.empty()) {
    return Echec(contexte, Textes::EcritureRefusee, "\n" + sortie + ": " + refus, sortie);
  }
  return Resultat(contexte, Json{{"file", sortie},
                                 {"operations", liste.size()},
                                 {"points", NbPoints},
                                 {"sequences", TraceInitial.empty() ? 0 : NbSequences()}});
}

}  // namespace ovelin::cli
