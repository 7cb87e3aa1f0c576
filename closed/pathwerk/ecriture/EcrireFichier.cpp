// The DXF and DAT files that this system writes, both made to come back as they were.
#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <new>
#include <span>
#include <string>
#include <system_error>
#include <vector>

#include "base/ComposeEnMorceaux.h"
#include "base/Fichiers.h"
#include "base/Indices.h"
#include "base/Texte.h"
#include "closed/Pathwerk.h"
#include "closed/pathwerk/commun/Echange.h"

namespace pathwerk {

namespace {

constexpr std::string_view FinLigne = "\r\n";

// The shortest text without exponent that reads back to the same float, also for a reader that goes through a
// double.
void AjouteNombre(std::string& t, float valeur) {
  const float v = valeur + 0.0F;  // a negative zero is none in a drawing
  std::array<char, 200> tampon{};
  auto fin = std::to_chars(tampon.data(), tampon.data() + tampon.size(), v, std::chars_format::fixed).ptr;
  double relu = 0;
  std::from_chars(tampon.data(), fin, relu);
  if (static_cast<float>(relu) != v) {
    fin = std::to_chars(tampon.data(), tampon.data() + tampon.size(), double{v}, std::chars_format::fixed).ptr;
  }
  const std::string_view chiffres(tampon.data(), fin);
  t += chiffres;
  if (chiffres.find('.') == std::string_view::npos) t += ".0";
}

void Groupe(std::string& t, int code, std::string_view valeur) {
  if (code < 10) t += "  ";
  if (code >= 10 && code < 100) t += ' ';
  t += std::to_string(code);
  t += FinLigne;
  t += valeur;
  t += FinLigne;
}

void Groupe(std::string& t, int code, float valeur) {
  std::string n;
  AjouteNombre(n, valeur);
  Groupe(t, code, n);
}

void Place(std::string& t, float x, float y) {
  Groupe(t, 10, x);
  Groupe(t, 20, y);
  Groupe(t, 30, 0.0F);
}

using base::Plage;

constexpr std::size_t PointsParMorceau = 4096;

// The runs of equal `Seq`.
std::vector<Plage> SequencesDe(std::span<const PointTrace> points) {
  std::vector<Plage> sequences;
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (i == 0 || points[i].Seq != points[i - 1].Seq) sequences.push_back({i, i});
    sequences.back().fin = i + 1;
  }
  return sequences;
}

// A text that has something to say before and behind each run, and of each of its points.
class TexteParSequence {
 public:
  explicit TexteParSequence(std::span<const PointTrace> points)
      : points_(points), sequences_(SequencesDe(points)) {}

  // `entete`, `fin`: of a run by its number, from 0; `place`: of a point; `nombre`: how many of its first points a
  // run has in the text.
  template <class Entete, class Place, class Fin, class Nombre>
  void Compose(std::string& texte, unsigned fils, Entete entete, Place place, Fin fin, Nombre nombre) const {
    base::ComposeEnMorceaux(texte, fils, points_.size(), PointsParMorceau, [&](std::string& t, Plage morceau) {
      const auto finit = [](std::size_t i, const Plage& s) { return i < s.fin; };
      auto s = std::upper_bound(sequences_.begin(), sequences_.end(), morceau.debut, finit);
      for (; s != sequences_.end() && s->debut < morceau.fin; ++s) {
        const std::size_t numero = base::Indice(s - sequences_.begin());
        const std::span<const PointTrace> chemin = points_.subspan(s->debut, s->fin - s->debut);
        if (s->debut >= morceau.debut) entete(t, numero, chemin);
        const std::size_t bout = std::min(morceau.fin, s->debut + nombre(chemin));
        for (std::size_t i = std::max(morceau.debut, s->debut); i < bout; ++i) place(t, points_[i]);
        if (s->fin <= morceau.fin) fin(t);
      }
    });
  }

 private:
  std::span<const PointTrace> points_;
  std::vector<Plage> sequences_;
};

// The closed flag takes the place of the last point, but only where it can't be mistaken when it is read back: a
// point given twice is a hole, and a path that ends by standing still keeps all its points.
bool AvecDrapeau(std::span<const PointTrace> s) {
  return s.size() > 3 && MemePlace(s.front(), s.back()) && !MemePlace(s.front(), s[s.size() - 2]);
}

// AutoCAD R12: one POLYLINE for each sequence. The first group tells the reader that order, direction and start are
// those of the drawing.
std::string TexteDxf(const std::vector<PointTrace>& points, const std::string& commentaire, unsigned fils) {
  std::string t;
  t.reserve(points.size() * 80 + 1000);
  Groupe(t, 999, "OVELIN");
  if (!commentaire.empty()) Groupe(t, 999, commentaire);
  PointTrace bas = points.empty() ? PointTrace{} : points[0];
  PointTrace haut = bas;
  for (const PointTrace& p : points) {
    bas.X = std::min(bas.X, p.X);
    bas.Y = std::min(bas.Y, p.Y);
    haut.X = std::max(haut.X, p.X);
    haut.Y = std::max(haut.Y, p.Y);
  }
  Groupe(t, 0, "SECTION");
  Groupe(t, 2, "HEADER");
  Groupe(t, 9, "$ACADVER");
  Groupe(t, 1, "AC1009");
  Groupe(t, 9, "$EXTMIN");
  Place(t, bas.X, bas.Y);
  Groupe(t, 9, "$EXTMAX");
  Place(t, haut.X, haut.Y);
  Groupe(t, 0, "ENDSEC");
  Groupe(t, 0, "SECTION");
  Groupe(t, 2, "ENTITIES");
  const auto entete = [](std::string& u, std::size_t, std::span<const PointTrace> s) {
    Groupe(u, 0, "POLYLINE");
    Groupe(u, 8, "0");
    Groupe(u, 66, "1");
    Place(u, 0, 0);
    Groupe(u, 70, AvecDrapeau(s) ? "1" : "0");
  };
  const auto sommet = [](std::string& u, const PointTrace& p) {
    Groupe(u, 0, "VERTEX");
    Groupe(u, 8, "0");
    Place(u, p.X, p.Y);
  };
  const auto fin = [](std::string& u) {
    Groupe(u, 0, "SEQEND");
    Groupe(u, 8, "0");
  };
  const auto nombre = [](std::span<const PointTrace> s) { return s.size() - (AvecDrapeau(s) ? 1 : 0); };
  TexteParSequence(points).Compose(t, fils, entete, sommet, fin, nombre);
  Groupe(t, 0, "ENDSEC");
  Groupe(t, 0, "EOF");
  return t;
}

// A first line with the comment, then for each sequence a line "#" with its number and one row of X and Y a point.
std::string TexteDat(const std::vector<PointTrace>& points, const std::string& commentaire, unsigned fils) {
  std::string t;
  t.reserve(points.size() * 24 + 400);
  t += "#OVELIN";
  if (!commentaire.empty()) t += ' ' + commentaire;
  t += FinLigne;
  const auto entete = [](std::string& u, std::size_t numero, std::span<const PointTrace>) {
    u += '#' + std::to_string(numero + 1);
    u += FinLigne;
  };
  const auto rangee = [](std::string& u, const PointTrace& p) {
    AjouteNombre(u, p.X);
    u += ' ';
    AjouteNombre(u, p.Y);
    u += FinLigne;
  };
  const auto tous = [](std::span<const PointTrace> s) { return s.size(); };
  TexteParSequence(points).Compose(
      t, fils, entete, rangee, [](std::string&) {}, tous);
  return t;
}

// Without the blanks that pad it, and on one line: it must not open a group or a row of the file.
std::string CommentaireNet(const std::string& commentaire) {
  std::string c = SansNul(commentaire);
  for (char& k : c) {
    if (base::Octet(k) < ' ') k = ' ';
  }
  c.resize(std::min(c.find_last_not_of(' ') + 1, LongueurMessage));
  return c;
}

bool Ecrivable(const PointTrace& p) { return std::isfinite(p.X) && std::isfinite(p.Y); }

}  // namespace

std::int32_t EcrireFichier(const std::vector<PointTrace>& points, const std::string& fichier,
                           std::string& commentaire, unsigned fils) {
  const std::string chemin = SansNul(fichier);
  const auto echec = [&](const std::string& raison) {
    commentaire = EnMessage(base::NomDe(chemin) + ": " + raison);
    return Numero(Erreur::Ecriture);
  };
  try {
    const std::string net = CommentaireNet(commentaire);
    const auto faux = std::find_if_not(points.begin(), points.end(), Ecrivable);
    if (faux != points.end()) return echec(std::to_string(faux->X) + " " + std::to_string(faux->Y));
    const bool dxf = Extension(chemin) == "DXF";
    const int raison = base::EcritFichier(chemin, dxf ? TexteDxf(points, net, fils) : TexteDat(points, net, fils));
    if (raison != 0) return echec(base::TexteErreur(raison));
    commentaire = EnMessage(net);
    return 0;
  } catch (const std::bad_alloc&) {
    return echec(base::TexteErreur(ENOMEM));
  }
}

}  // namespace pathwerk
