#include "core/ProjetTexte.h"

#include <algorithm>
#include <atomic>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <system_error>
#include <unordered_map>
#include <utility>

#include "base/Equipe.h"
#include "base/Texte.h"
#include "core/Coeurs.h"
#include "core/Gestes.h"
#include "core/Lignes.h"
#include "core/Nombres.h"
#include "core/Services.h"
#include "core/Texte8.h"

namespace ovelin {

namespace {

constexpr std::size_t LargeurLigne = 60;
constexpr std::size_t LargeurChamp = 15;
constexpr std::size_t LargeurProfondeur = 20;
constexpr double CoordonneeMax = 1e7;     // mm, as far as the readers of foreign drawings go
constexpr std::size_t DouteusesMax = 16;  // of a file that is wrong on every line the first ones will do

// Columns from 1, as much of them as the line has.
std::string_view Colonnes(std::string_view ligne, std::size_t premiere, std::size_t nombre) {
  return premiere - 1 < ligne.size() ? ligne.substr(premiere - 1, nombre) : std::string_view{};
}

bool EstReglage(std::string_view ligne) { return ligne.starts_with("$$"); }
bool EstPoint(std::string_view ligne) { return !EstReglage(ligne) && Colonnes(ligne, 31, 2) != "PE"; }

// A number of the file, with either mark. The fields are short, so the copy stays on the stack.
template <typename Reel>
Reel NombreChamp(std::string_view champ) {
  if (champ.find(',') == std::string_view::npos) {
    if constexpr (sizeof(Reel) == sizeof(float)) {
      return ValeurDebutFloat(champ);
    } else {
      return ValeurDebut(champ);
    }
  }
  std::string copie(champ);
  std::replace(copie.begin(), copie.end(), ',', '.');
  return NombreChamp<Reel>(copie);
}

// A coordinate: the float nearest to the text, as the plain conversion gives it. Short decimal texts, nearly all of
// a file, take a quick road: up to 15 digits and a divisor up to 10^13 are exact in a double, so that the quotient
// v is the double nearest to the text t, and v as a float is the float nearest to t. Rounding twice can go astray
// only where v is the middle m of two floats and t is not. Then m = M / 2^n with M odd, t = T / 10^d, and
//     |t - m| = |r| / (2^(n-d) x 10^d),   r = M x 5^d modulo 2^(n-d), odd.
// With d <= 13, the most that a field of 15 columns leaves behind digit and point, v = m asks for |r| = 1, and 5^d
// is 1 modulo 4: so M is r modulo 4, and the even one of the two floats is the one on t's side.
// `simple`: the field is a plain decimal text as far as its first blank.
float Coordonnee(std::string_view champ, bool& simple) {
  static constexpr double puissances[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13};
  const char* c = champ.data();
  const char* const fin = c + champ.size();
  while (c < fin && *c == ' ') ++c;
  const bool moins = c < fin && *c == '-';
  if (moins) ++c;
  const auto chiffre = [&c, fin] { return c < fin && *c >= '0' && *c <= '9'; };
  std::uint64_t mantisse = 0;  // a field has 15 columns at most
  const char* const debut = c;
  for (; chiffre(); ++c) mantisse = mantisse * 10 + static_cast<std::uint64_t>(*c - '0');
  std::ptrdiff_t decimales = 0;
  if (c > debut && c < fin && (*c == '.' || *c == ',')) {
    const char* const apres = ++c;
    for (; chiffre(); ++c) mantisse = mantisse * 10 + static_cast<std::uint64_t>(*c - '0');
    decimales = c - apres;
  }
  simple = c > debut && (c == fin || *c == ' ');
  if (!simple) return NombreChamp<float>(champ);
  const double v = static_cast<double>(mantisse) / puissances[decimales];
  return static_cast<float>(moins ? -v : v);
}

std::string_view ChampX(std::string_view ligne) { return Colonnes(ligne, 1, LargeurChamp); }
std::string_view ChampY(std::string_view ligne) { return Colonnes(ligne, 16, LargeurChamp); }

struct LieuLu {
  float X = 0, Y = 0;
  bool simpleX = false, simpleY = false;
};
LieuLu LitLieu(std::string_view ligne) {
  LieuLu lieu;
  lieu.X = Coordonnee(ChampX(ligne), lieu.simpleX);
  lieu.Y = Coordonnee(ChampY(ligne), lieu.simpleY);
  return lieu;
}

// Fields that the plain conversion takes otherwise than they are meant.
class Douteuses {
 public:
  explicit Douteuses(std::vector<ValeurDouteuse>& liste) : liste_(liste) {}
  void Ligne() { ++ligne_; }
  void Ligne(long ligne) { ligne_ = ligne; }
  void Point(std::string_view ligne, const LieuLu& lieu) {
    if (!lieu.simpleX || Loin(lieu.X)) Nombre("X", ChampX(ligne));
    if (!lieu.simpleY || Loin(lieu.Y)) Nombre("Y", ChampY(ligne));
  }
  void Nombre(const char* cle, std::string_view champ) {
    const auto v = NombreDuTexte(champ);
    if (!v || std::abs(*v) > CoordonneeMax) Ajoute(cle, champ);
  }
  void Complement(std::string_view ligne) { Ajoute("Complement", ligne); }
  void Cote(std::string_view champ) {
    if (champ.size() != 1 || champ[0] < '0' || champ[0] > '9') Ajoute("Decalage", champ);
  }

 private:
  static bool Loin(float v) { return !(std::abs(v) <= static_cast<float>(CoordonneeMax)); }
  void Ajoute(const char* cle, std::string_view champ) {
    if (liste_.size() < DouteusesMax) liste_.push_back({ligne_, cle, Coupe8(Rogne(champ), LargeurLigne)});
  }
  std::vector<ValeurDouteuse>& liste_;
  long ligne_ = 0;
};

void Recense(RecensementProjet& r, float x, float y) {
  if (r.NbPoints == 0) {
    r.Xmin = r.Xmax = x;
    r.Ymin = r.Ymax = y;
  }
  r.Xmin = std::min(r.Xmin, x);
  r.Xmax = std::max(r.Xmax, x);
  r.Ymin = std::min(r.Ymin, y);
  r.Ymax = std::max(r.Ymax, y);
  ++r.NbPoints;
}

// Position of the first record of each code.
class RangParCode {
 public:
  explicit RangParCode(std::span<const SequenceInfo> sequences) {
    rangs_.reserve(sequences.size());
    for (std::size_t i = 0; i < sequences.size(); ++i) rangs_.try_emplace(sequences[i].Code.Cle(), i);
  }
  [[nodiscard]] const std::size_t* Cherche(Code2 code) const {
    const auto trouve = rangs_.find(code.Cle());
    return trouve == rangs_.end() ? nullptr : &trouve->second;
  }
  void Ajoute(Code2 code, std::size_t rang) { rangs_.try_emplace(code.Cle(), rang); }
  void Oublie(Code2 code) { rangs_.erase(code.Cle()); }

 private:
  std::unordered_map<std::uint32_t, std::size_t> rangs_;
};

// Writes by code, as the document's own table does it: over the first record of that code; an unknown code fills
// the first record while that is blank, else it goes behind the last. Who reads a project selects all of them in
// the end.
class TableEnLecture {
 public:
  explicit TableEnLecture(std::vector<SequenceInfo>& sequences) : sequences_(sequences), rangs_(sequences) {}

  void Ecrit(const SequenceInfo& info) {
    std::size_t rang = sequences_.size();
    if (const std::size_t* connu = rangs_.Cherche(info.Code)) {
      rang = *connu;
    } else if (!sequences_.empty() && sequences_[0].Code == Code2{}) {
      rang = 0;
      rangs_.Oublie(Code2{});
    }
    if (rang == sequences_.size()) sequences_.emplace_back();
    sequences_[rang] = info;
    rangs_.Ajoute(info.Code, rang);
  }
  [[nodiscard]] bool Connait(Code2 code) const { return rangs_.Cherche(code) != nullptr; }

 private:
  std::vector<SequenceInfo>& sequences_;
  RangParCode rangs_;
};

void SelectionneTout(std::vector<SequenceInfo>& sequences) {
  for (SequenceInfo& s : sequences) s.Selection = Vrai;
}

// A flag of a line: anything but "0" is true.
Drapeau Signe(std::string_view colonne) { return EnDrapeau(colonne != "0"); }

SequenceInfo LitLigneSequence(std::string_view ligne) {
  SequenceInfo s;
  s.Code = Code2(Colonnes(ligne, 6, 2));
  s.Poche = Signe(Colonnes(ligne, 9, 1));
  s.Fraiser = Signe(Colonnes(ligne, 10, 1));
  s.Profondeur = NombreChamp<double>(Colonnes(ligne, 11, LargeurProfondeur));
  s.Decalage = CoteLigne;  // until the companion tells; old files have none
  return s;
}

// A line that says something of a path that has no line, or can't be read, says nothing.
void LitComplement(ContenuProjet& c, std::string_view ligne, const TableEnLecture& table, Douteuses& douteuses) {
  const auto lue = LitLigneComplement(ligne);
  const bool connue = lue && table.Connait(lue->code);
  if (!connue || !lue->entiere) douteuses.Complement(ligne);
  if (!connue) return;
  Complement complement = c.Complements.De(lue->code);
  if (lue->ilot) {
    complement.Ilot = true;
  } else {
    complement.Calque = lue->calque;
    complement.Couleur = lue->couleur;
  }
  c.Complements.Pose(lue->code, std::move(complement));
}

// A stretch of whole lines, and what it says.
struct Part {
  std::string_view texte;
  std::vector<PointTrace> points;
  long lignes = 0;
  std::vector<std::pair<long, std::string_view>> reglages;  // lines that begin with "$$", by their numbers from 1
  std::vector<ValeurDouteuse> douteuses;                    // of the points

  void Lit() {
    Douteuses douteux(douteuses);
    points.reserve(texte.size() / (LargeurLigne + 1) + 1);
    std::string_view reste = texte;
    std::string_view ligne;
    while (LigneSuivante(reste, ligne)) {
      douteux.Ligne();
      ++lignes;
      if (EstPoint(ligne)) {
        const LieuLu lieu = LitLieu(ligne);
        points.push_back({lieu.X, lieu.Y, Code2(Colonnes(ligne, 31, 2)), Code2(Colonnes(ligne, 46, 2))});
        douteux.Point(ligne, lieu);
      } else if (EstReglage(ligne)) {
        reglages.emplace_back(lignes, ligne);
      }
    }
  }
};

// Cut behind an LF, where a line ends whatever ends the others.
std::vector<Part> Parts(std::string_view contenu, std::size_t octets) {
  std::vector<Part> parts;
  while (!contenu.empty()) {
    const std::size_t lf = contenu.size() > octets ? contenu.find('\n', octets) : std::string_view::npos;
    const std::string_view texte = contenu.substr(0, lf == std::string_view::npos ? lf : lf + 1);
    parts.emplace_back().texte = texte;
    contenu.remove_prefix(texte.size());
  }
  return parts;
}

// The lines that say something of paths, in their order.
class LecteurReglages {
 public:
  explicit LecteurReglages(ContenuProjet& c) : c_(c), table_(c.Sequences), douteuses_(c.Douteuses) {}

  void Lit(std::string_view ligne, long numero) {
    douteuses_.Ligne(numero);
    if (ligne.starts_with("$$Seq")) {
      derniere_ = LitLigneSequence(ligne);
      douteuses_.Nombre("Profondeur", Colonnes(ligne, 11, LargeurProfondeur));
      table_.Ecrit(*derniere_);
    } else if (ligne.starts_with("$$SeD") && derniere_) {
      douteuses_.Cote(Colonnes(ligne, 6, 1));
      derniere_->Decalage = Arrondi16(ValeurDebut(Colonnes(ligne, 6, 1)));
      table_.Ecrit(*derniere_);
    } else if (EstLigneComplement(ligne)) {
      LitComplement(c_, ligne, table_, douteuses_);
    } else if (ligne.starts_with("$$Mat01")) {
      c_.LargeurEncoche = NombreChamp<double>(Colonnes(ligne, 8, LargeurLigne));
      douteuses_.Nombre("LargeurEncoche", Colonnes(ligne, 8, LargeurLigne));
    } else if (ligne.starts_with("$$Mat02")) {
      c_.MiniEncoche = NombreChamp<double>(Colonnes(ligne, 8, LargeurLigne));
      douteuses_.Nombre("MiniEncoche", Colonnes(ligne, 8, LargeurLigne));
    }
  }

 private:
  ContenuProjet& c_;
  TableEnLecture table_;
  Douteuses douteuses_;
  std::optional<SequenceInfo> derniere_;  // the last "$$Seq", which a "$$SeD" behind it completes
};

// Control bytes that no project holds.
bool TientInterdit(std::string_view contenu) {
  constexpr std::size_t Morceau = 1U << 20;
  const auto interdit = [](char c) { return base::Octet(c) < 0x20 && c != '\t' && c != '\r' && c != '\n'; };
  std::atomic<bool> tient = false;
  base::FaitTout(NombreCoeurs, (contenu.size() + Morceau - 1) / Morceau, [&](std::size_t i) {
    const std::string_view morceau = contenu.substr(i * Morceau, Morceau);
    if (!tient && std::any_of(morceau.begin(), morceau.end(), interdit)) tient = true;
  });
  return tient;
}

void Complete(std::string& texte, std::size_t debut, std::size_t largeur) {
  texte.resize(debut + largeur, ' ');  // pads, or cuts what is longer
}

// Puts a number at the start of a field that is blank.
void PoseNombre(char* champ, float v, char marque) {
  const float grandeur = std::abs(v);
  if (grandeur >= 1e-7F && grandeur < 1e15F) {
    const auto ecrit = std::to_chars(champ, champ + LargeurChamp, v, std::chars_format::fixed);
    if (ecrit.ec == std::errc{}) {
      if (marque != '.') std::replace(champ, ecrit.ptr, '.', marque);
      return;
    }
  }
  const std::string texte = TexteNombreLimite(v, LargeurChamp);
  std::fill_n(champ, LargeurChamp, ' ');
  std::copy(texte.begin(), texte.end(), champ);
}

void PoseCode(char* champ, Code2 code) {
  const std::string texte = code.Texte();
  std::copy(texte.begin(), texte.end(), champ);
}

}  // namespace

RecensementProjet RecenseProjet(std::string_view contenu) {
  RecensementProjet r;
  std::string_view ligne;
  while (LigneSuivante(contenu, ligne)) {
    if (!EstPoint(ligne)) continue;
    const LieuLu lieu = LitLieu(ligne);
    Recense(r, lieu.X, lieu.Y);
  }
  return r;
}

bool EstTexteProjet(std::string_view contenu) {
  if (TientInterdit(contenu)) return false;
  bool vide = true;
  std::string_view ligne;
  while (LigneSuivante(contenu, ligne)) {
    if (EstReglage(ligne) || (EstNumerique(ChampX(ligne)) && EstNumerique(ChampY(ligne)))) return true;
    vide = vide && Rogne(ligne).empty();
  }
  return vide;
}

// The points of each part are read by themselves, the few lines that say something of paths in the order of the
// file.
ContenuProjet LitTexteProjet(std::string_view contenu, std::size_t octetsParPart) {
  std::vector<Part> parts = Parts(contenu, octetsParPart);
  base::FaitTout(NombreCoeurs, parts.size(), [&](std::size_t i) { parts[i].Lit(); });
  ContenuProjet c;
  std::size_t points = 0;
  for (const Part& part : parts) points += part.points.size();
  if (parts.size() > 1) c.Points.reserve(points);
  c.Sequences.assign(1, SequenceInfo{});
  LecteurReglages reglages(c);
  long ligne = 0;
  for (Part& part : parts) {
    for (const auto& [numero, texte] : part.reglages) reglages.Lit(texte, ligne + numero);
    for (ValeurDouteuse& v : part.douteuses) {
      v.ligne += ligne;
      c.Douteuses.push_back(std::move(v));
    }
    for (const PointTrace& p : part.points) Recense(c.Recensement, p.X, p.Y);
    if (parts.size() == 1) {
      c.Points = std::move(part.points);
    } else {
      c.Points.insert(c.Points.end(), part.points.begin(), part.points.end());
    }
    ligne += part.lignes;
    part = Part{};
  }
  // A line has a kind of its own, so that its fields stay together.
  std::stable_sort(c.Douteuses.begin(), c.Douteuses.end(),
                   [](const ValeurDouteuse& a, const ValeurDouteuse& b) { return a.ligne < b.ligne; });
  if (c.Douteuses.size() > DouteusesMax) c.Douteuses.resize(DouteusesMax);
  // Where the file ends in the middle of a line, who tells that need not tell the fields of that line.
  if (EstTronque(contenu))
    std::erase_if(c.Douteuses, [ligne](const ValeurDouteuse& v) { return v.ligne == ligne; });
  SelectionneTout(c.Sequences);
  return c;
}

bool EstTronque(std::string_view contenu) {
  if (contenu.empty() || contenu.back() == '\n' || contenu.back() == '\r') return false;
  constexpr std::string_view fermeture = "$$Mat02";
  for (std::size_t i = contenu.rfind(fermeture); i != std::string_view::npos && i > 0;
       i = contenu.rfind(fermeture, i - 1)) {
    if (contenu[i - 1] == '\n' || contenu[i - 1] == '\r') return false;
  }
  return !contenu.starts_with(fermeture);
}

void CompleteSequences(std::vector<SequenceInfo>& sequences, std::span<const PointTrace> points,
                       double profondeur) {
  SelectionneTout(sequences);
  TableEnLecture table(sequences);
  Code2 courant = CodeAucun;
  for (const PointTrace& p : points) {
    if (p.Seq == courant) continue;
    courant = p.Seq;
    if (!table.Connait(courant)) table.Ecrit({courant, Faux, profondeur, Vrai, 1, Vrai});
  }
  SelectionneTout(sequences);
}

void ComposeSequences(std::string& texte, std::span<const PointTrace> points,
                      std::span<const SequenceInfo> sequences, const TableComplements& complements) {
  const RangParCode rangs(sequences);
  Code2 courant = CodeAucun;
  for (const PointTrace& p : points) {
    if (p.Seq == courant) continue;
    courant = p.Seq;
    SequenceInfo info{courant, Faux, 0.0, Vrai, 1, Vrai};
    if (const std::size_t* rang = rangs.Cherche(courant)) info = sequences[*rang];
    const std::size_t debut = texte.size();
    texte.append("$$Seq").append(courant.Texte()).append("0");
    texte += info.Poche != Faux ? '1' : '0';
    texte += info.Fraiser != Faux ? '1' : '0';
    texte += TexteNombreLimite(info.Profondeur, LargeurProfondeur);
    Complete(texte, debut, LargeurLigne);
    texte += "\r\n$$SeD";
    texte += static_cast<char>('0' + std::clamp<int>(info.Decalage, 0, 9));
    texte += "\r\n";
    ComposeComplement(texte, courant, complements.De(courant));
  }
}

// All lines are as long as each other, so that each has its place beforehand. There is room for the closing lines,
// too: for them alone the whole text would be copied.
void ComposePoints(std::string& texte, std::span<const PointTrace> points) {
  constexpr std::size_t PointsParMorceau = 8192;
  const char marque = Svc.MarqueDecimale;
  const std::size_t debut = texte.size();
  const std::size_t fin = debut + points.size() * (LargeurLigne + 2);
  texte.reserve(fin + 2 * (LargeurLigne + 2));
  texte.resize(fin, ' ');
  const std::size_t morceaux = (points.size() + PointsParMorceau - 1) / PointsParMorceau;
  base::FaitTout(NombreCoeurs, morceaux, [&](std::size_t m) {
    const std::size_t dernier = std::min((m + 1) * PointsParMorceau, points.size());
    for (std::size_t i = m * PointsParMorceau; i < dernier; ++i) {
      char* const ligne = texte.data() + debut + i * (LargeurLigne + 2);
      PoseNombre(ligne, points[i].X, marque);
      PoseNombre(ligne + LargeurChamp, points[i].Y, marque);
      PoseCode(ligne + 2 * LargeurChamp, points[i].Cde);
      PoseCode(ligne + 3 * LargeurChamp, points[i].Seq);
      ligne[LargeurLigne] = '\r';
      ligne[LargeurLigne + 1] = '\n';
    }
  });
}

void ComposeEncoches(std::string& texte, double largeurEncoche, double miniEncoche) {
  const auto ligne = [&texte](const char* nom, double v) {
    const std::size_t debut = texte.size();
    texte.append(nom).append(TexteNombre(v));
    Complete(texte, debut, LargeurLigne);
    texte += "\r\n";
  };
  ligne("$$Mat01", largeurEncoche);
  ligne("$$Mat02", miniEncoche);
}

}  // namespace ovelin
