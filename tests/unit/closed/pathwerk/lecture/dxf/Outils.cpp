#include "tests/unit/closed/pathwerk/lecture/dxf/Outils.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <sstream>

namespace essai {

using pathwerk::Vec2;
using pathwerk::lecture::Lecture;
using pathwerk::lecture::Nature;
using pathwerk::lecture::Trait;

Groupes DeMots(const std::string& mots) {
  Groupes g;
  std::istringstream flux(mots);
  std::string mot;
  while (flux >> mot) {
    const std::size_t egal = mot.find('=');
    std::string valeur = mot.substr(egal + 1);
    std::ranges::replace(valeur, '~', ' ');
    g.emplace_back(std::stoi(mot.substr(0, egal)), valeur);
  }
  return g;
}

std::string EnTexte(const Groupes& groupes, const std::string& finDeLigne) {
  std::string t;
  for (const auto& [code, valeur] : groupes) t += std::to_string(code) + finDeLigne + valeur + finDeLigne;
  return t;
}

namespace {

template <class T>
void Octets(std::string& sortie, T valeur) {
  char o[sizeof(T)];
  std::memcpy(o, &valeur, sizeof(T));
  sortie.append(o, sizeof(T));
}

}  // namespace

std::string EnBinaire(const Groupes& groupes, bool codeLarge) {
  std::string t("AutoCAD Binary DXF\r\n\x1a\0", 22);
  for (const auto& [code, valeur] : groupes) {
    if (codeLarge) {
      Octets(t, static_cast<std::int16_t>(code));
    } else if (code < 255) {
      t += static_cast<char>(code);
    } else {
      t += '\xff';
      Octets(t, static_cast<std::int16_t>(code));
    }
    const bool reel = (code >= 10 && code < 60) || (code >= 110 && code < 150) || (code >= 210 && code < 240) ||
                      (code >= 1010 && code < 1060);
    const bool court = (code >= 60 && code < 80) || (code >= 170 && code < 180) || (code >= 270 && code < 290) ||
                       (code >= 370 && code < 390) || (code >= 1060 && code <= 1070);
    if (reel) {
      Octets(t, std::stod(valeur));
    } else if (court) {
      Octets(t, static_cast<std::int16_t>(std::stoi(valeur)));
    } else if ((code >= 90 && code < 100) || (code >= 420 && code < 430) || (code >= 440 && code < 460) ||
               code == 1071) {
      Octets(t, static_cast<std::int32_t>(std::stoi(valeur)));
    } else if (code >= 160 && code < 170) {
      Octets(t, static_cast<std::int64_t>(std::stoll(valeur)));
    } else if (code >= 290 && code < 300) {
      t += static_cast<char>(std::stoi(valeur));
    } else if (code == 1004 || code == 310) {
      t += static_cast<char>(valeur.size());
      t += valeur;
    } else {
      t += valeur;
      t += '\0';
    }
  }
  return t;
}

std::string Section(const std::string& entites) { return "0=SECTION 2=ENTITIES " + entites + " 0=ENDSEC 0=EOF "; }
std::string Texte(const std::string& mots) { return EnTexte(DeMots(mots)); }

std::string AvecEntete(const std::string& variables, const std::string& entites) {
  return Texte("0=SECTION 2=HEADER 9=$ACADVER 1=AC1015 " + variables + " 0=ENDSEC " + Section(entites));
}

std::string AvecBlocs(const std::string& blocs, const std::string& entites) {
  return Texte("0=SECTION 2=BLOCKS " + blocs + " 0=ENDSEC " + Section(entites));
}

std::string AvecCalques(const std::string& calques, const std::string& entites) {
  return Texte("0=SECTION 2=TABLES 0=TABLE 2=LAYER 70=9 " + calques + " 0=ENDTAB 0=ENDSEC " + Section(entites));
}

Lecture Lit(std::string_view data, double fleche) {
  Lecture l;
  pathwerk::OptionsLecture options;
  options.Fleche = fleche;
  pathwerk::lecture::dxf::LireDxf(data, options, l);
  return l;
}

Lecture LitEntites(const std::string& entites, double fleche) {
  Lecture l = Lit(Texte(Section(entites)), fleche);
  EXPECT_EQ(l.rapport.Numero, pathwerk::Erreur::Aucune) << l.rapport.Ligne << ": " << l.rapport.Detail;
  return l;
}

long Ignores(const Lecture& l, const std::string& genre) {
  const auto i = l.rapport.Ignores.find(genre);
  return i == l.rapport.Ignores.end() ? 0 : i->second;
}

Boite BoiteDe(const std::vector<Vec2>& points) {
  Boite b{1e300, 1e300, -1e300, -1e300};
  for (const Vec2& p : points) {
    b = {std::min(b.xmin, p.x), std::min(b.ymin, p.y), std::max(b.xmax, p.x), std::max(b.ymax, p.y)};
  }
  return b;
}

double Aire(const std::vector<Vec2>& points) {
  double a = 0;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const Vec2 p = points[i];
    const Vec2 q = points[(i + 1) % points.size()];
    a += p.x * q.y - q.x * p.y;
  }
  return a / 2;
}

double Longueur(const Trait& trait) {
  double l = 0;
  const std::size_t n = trait.points.size();
  for (std::size_t i = 0; i + (trait.nature == Nature::Ferme ? 0 : 1) < n; ++i) {
    const Vec2 a = trait.points[i];
    const Vec2 b = trait.points[(i + 1) % n];
    l += std::hypot(a.x - b.x, a.y - b.y);
  }
  return l;
}

double Distance(Vec2 p, const Trait& trait) {
  double min = 1e300;
  const std::size_t n = trait.points.size();
  for (std::size_t i = 0; i + (trait.nature == Nature::Ferme ? 0 : 1) < n; ++i) {
    const Vec2 a = trait.points[i];
    const Vec2 b = trait.points[(i + 1) % n];
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double l2 = dx * dx + dy * dy;
    const double t = l2 > 0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / l2, 0.0, 1.0) : 0;
    min = std::min(min, std::hypot(p.x - a.x - t * dx, p.y - a.y - t * dy));
  }
  return min;
}

void AttendPoint(Vec2 p, double x, double y, double tolerance) {
  EXPECT_NEAR(p.x, x, tolerance);
  EXPECT_NEAR(p.y, y, tolerance);
}

void AttendBoite(const Lecture& l, double xmin, double ymin, double xmax, double ymax, double tolerance) {
  std::vector<Vec2> tous;
  for (const Trait& t : l.traits) tous.insert(tous.end(), t.points.begin(), t.points.end());
  const Boite b = BoiteDe(tous);
  EXPECT_NEAR(b.xmin, xmin, tolerance);
  EXPECT_NEAR(b.ymin, ymin, tolerance);
  EXPECT_NEAR(b.xmax, xmax, tolerance);
  EXPECT_NEAR(b.ymax, ymax, tolerance);
}

}  // namespace essai
