// The offset on every kind of outline, Clipper's own offset beside it, in one run:
//   bench_offset [MAX_POINTS [SECONDS_FOR_CLIPPER [FAMILY]]]
// leaves larger outlines out, and all but those whose name holds FAMILY. Each case runs in a process of its own;
// Clipper gets a minute of processor time for each unless told otherwise. Columns:
//
//   own: DecalSequence as the program calls it, from records to records, seconds
//
//   Clipper: thinning as ours (coarser, its result is off by far more than the tolerance), ClipperOffset with round
//   joins, and back. Its arcs come out up to 2.25 times as coarse as asked: at an arc tolerance of 0.0044 mm its
//   result is as near to the truth as ours has to be
//
//   behind the last bar, where the machine has them, thinned alike, seconds and error: GEOS, its buffer, with
//   chords within 0.0085 mm; Clipper2 and CavalierContours in WebAssembly, which costs them up to a half of their
//   speed, but without the way of the points into their memory and back. "-": it took too long, or gave up
//
//   ratio: Clipper's time to ours
//
//   growth: our time to that of the same family with a tenth of the points
//
//   B/pt: greatest memory of DecalSequence a point
//
//   error: of samples of our result, of samples of the true curve, and the greater one of Clipper's, mm
//
//   fallback: how often our engine took Clipper's result
//
// Clipper can't offset an open path on one side; there it makes the band on both. What misses a goal has a star.
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <optional>
#include <polyclipping/clipper.hpp>
#include <string>
#include <vector>

#include "bench/DeGeos.h"
#include "bench/DeNode.h"
#include "bench/Enfant.h"
#include "bench/ErreurDecalage.h"
#include "bench/FormesDecalage.h"
#include "closed/Pathwerk.h"
#include "closed/pathwerk/chemin/Simplifie.h"
#include "closed/pathwerk/decalage/Moteur.h"

using namespace pathwerk;
using banc::Chemin;

namespace {

constexpr float Tolerance = 0.01F;          // mm
constexpr unsigned NotreLimite = 600;       // s
constexpr double EchelleClipper = 1e5;      // Clipper's units a millimetre
constexpr double FlecheDesAutres = 0.0085;  // mm

unsigned limite = 60;  // of Clipper, s

using Records = std::vector<PointTrace>;

Records EnRecords(const Chemin& c, bool ferme) {
  Records t;
  t.reserve(c.size() + 1);
  for (const Vec2 p : c) t.push_back({static_cast<float>(p.x), static_cast<float>(p.y), CodePD, Code2(" A")});
  if (ferme) t.push_back(t.front());
  return t;
}

Chemin EnChemin(const Records& t) {
  Chemin c;
  c.reserve(t.size());
  for (const PointTrace& p : t) c.push_back({static_cast<double>(p.X), static_cast<double>(p.Y)});
  return c;
}

// What the other engines are given.
Chemin Aminci(const Records& t) {
  const Chemin c = EnChemin(t);
  Chemin r;
  for (const std::size_t i : chemin::Simplifie(c, std::vector<std::uint8_t>(c.size(), 0), 0.001)) r.push_back(c[i]);
  return r;
}

// --- Clipper -----------------------------------------------------------------------------------------------

class DeClipper {
 public:
  DeClipper(const Records& t, bool ferme) : ferme_(ferme), offset_(2, 0.0044 * EchelleClipper) {
    ClipperLib::Path q;
    for (const Vec2 p : Aminci(t)) {
      q.emplace_back(std::llround(p.x * EchelleClipper), std::llround(p.y * EchelleClipper));
    }
    if (ferme) q.pop_back();
    sens_ = ClipperLib::Orientation(q) ? -1 : 1;  // a positive delta grows the outline
    offset_.AddPath(q, ClipperLib::jtRound, ferme ? ClipperLib::etClosedPolygon : ClipperLib::etOpenRound);
  }
  // Segments of the offset, mm.
  std::vector<Segment> Decale(double d) {
    ClipperLib::Paths r;
    offset_.Execute(r, (ferme_ ? sens_ * d : std::abs(d)) * EchelleClipper);
    std::vector<Segment> s;
    const auto place = [](const ClipperLib::IntPoint& p) {
      return Vec2{static_cast<double>(p.X) / EchelleClipper, static_cast<double>(p.Y) / EchelleClipper};
    };
    for (const ClipperLib::Path& p : r) {
      for (std::size_t i = 0; i < p.size(); ++i) s.push_back({place(p[i]), place(p[(i + 1) % p.size()])});
    }
    return s;
  }

 private:
  bool ferme_;
  double sens_ = 1;
  ClipperLib::ClipperOffset offset_;
};

// --- One case ----------------------------------------------------------------------------------------------

struct Mesures {
  double secondes = 0;
  double octets = 0;  // a point
  double erreur = 0;
  double manque = 0;
  unsigned long replis = 0;
  unsigned long pieces = 0;
};

std::vector<Segment> SegmentsDe(const Records& t) {
  std::vector<Segment> s;
  const Chemin c = EnChemin(t);
  for (std::size_t i = 0; i + 1 < t.size(); ++i) {
    if (t[i].Seq == t[i + 1].Seq) s.push_back({c[i], c[i + 1]});
  }
  return s;
}

void MesureErreur(const Records& source, bool ferme, const std::vector<Segment>& resultat, double d, Mesures& m) {
  const ArbreSegments arbre(SegmentsDe(source));
  Chemin c = EnChemin(source);
  if (ferme) c.pop_back();
  m.erreur = banc::ErreurDuResultat(arbre, resultat, std::abs(d));
  m.manque = banc::ErreurManquante(c, ferme, arbre, resultat, d);
}

unsigned long Replis() {
  const decalage::CompteDuMoteur n = decalage::CompteDecaleRegion();
  return n.replis + n.replisLobes;
}

// Time, memory and fallbacks of ours over many calls.
template <class F>
Mesures Notre(std::size_t points, F appels) {
  Mesures m;
  m.octets = banc::MemoireDe(appels) / static_cast<double>(points);
  m.replis = Replis();
  m.secondes = banc::TempsMoyen(appels);
  return m;
}

struct Ligne {
  std::string famille;
  std::size_t points = 0;
  double rayon = 0;
  bool lisse = false;  // smooth outlines need not be ten times as fast as Clipper's
  std::optional<Mesures> notre;
  std::optional<Mesures> clipper;
  struct Autre {
    std::string nom;
    std::optional<Mesures> mesures;
  };
  std::vector<Autre> autres;
};

class Tableau {
 public:
  static void Titre() {
    std::printf("%-22s %9s %6s | %9s %9s %9s %7s %6s | %8s %8s %8s | %s\n", "outline", "points", "R", "own s",
                "Clipper s", "ratio", "growth", "B/pt", "error", "missing", "Clipper", "fallback");
  }
  void Ecrit(const Ligne& l) {
    if (!l.notre) {
      std::printf("%-22s %9zu %6g | failed *\n", l.famille.c_str(), l.points, l.rayon);
      ++manques_;
      return;
    }
    const Mesures& m = *l.notre;
    std::printf("%-22s %9zu %6g | %9.5f ", l.famille.c_str(), l.points, l.rayon, m.secondes);
    const double leur = l.clipper ? l.clipper->secondes : limite;
    const double rapport = leur / m.secondes;
    const bool dense = !l.lisse && l.points >= 100000;
    const bool lent = (l.clipper && rapport < 1 / 1.3) || (l.points >= 1000000 && m.secondes > 8) ||
                      (dense && l.points <= 200000 && rapport < 10);
    std::printf(l.clipper ? "%9.5f %8.1fx" : ">%8.0f %7.0fx+", leur, rapport);
    std::printf("%c", Note(lent));
    const auto petit = temps_.find({l.famille, l.points / 10});
    if (petit != temps_.end() && l.points >= 1000000) {
      const double croissance = m.secondes / petit->second;
      std::printf("%6.1fx%c", croissance, Note(croissance >= 14));
    } else {
      std::printf("%8s", "");
    }
    temps_[{l.famille, l.points}] = m.secondes;
    std::printf("%5.0f%c |", m.octets, Note(m.octets >= 1000));
    std::printf(" %.5f%c %.5f%c", m.erreur, Note(m.erreur > 0.01), m.manque, Note(m.manque > 0.01));
    if (l.clipper) {
      std::printf(" %.5f", std::max(l.clipper->erreur, l.clipper->manque));
    } else {
      std::printf(" %7s", "");
    }
    std::printf("  | %lu%c", m.replis, Note(m.replis > 0));
    for (const Ligne::Autre& a : l.autres) {
      std::printf("   | %s ", a.nom.c_str());
      if (!a.mesures) {
        std::printf("-");
        continue;
      }
      std::printf("%9.5f s", a.mesures->secondes);
      if (a.mesures->erreur > 0) std::printf(" %.5f", std::max(a.mesures->erreur, a.mesures->manque));
    }
    std::printf("\n");
    std::fflush(stdout);
  }
  [[nodiscard]] int Manques() const { return manques_; }

 private:
  char Note(bool manque) {
    manques_ += manque ? 1 : 0;
    return manque ? '*' : ' ';
  }
  std::map<std::pair<std::string, std::size_t>, double> temps_;
  int manques_ = 0;
};

// --- Families ----------------------------------------------------------------------------------------------

struct Cas {
  const char* nom;
  std::size_t points;
  Chemin (*forme)(std::size_t);
  bool ferme;
  double d;
  bool lisse = false;
  bool croise = false;  // crosses itself all over: which side of a strand is wanted the strand doesn't tell
};

// The error of one contour alone is measured.
std::vector<Ligne::Autre> Autres(const std::vector<Records>& contours, bool ferme, double d) {
  std::vector<Ligne::Autre> autres;
  const auto essaie = [&](const std::string& nom, const std::function<Mesures()>& f) {
    autres.push_back({nom, banc::DansUnEnfant<Mesures>(f, limite)});
  };
#ifdef BANC_GEOS
  essaie("GEOS", [&] {
    std::vector<Segment> s;
    Mesures m;
    m.secondes = banc::TempsMoyen([&] {
      for (const Records& contour : contours) {
        const Records t = contour;  // as ours has to
        s = banc::DeGeos(Aminci(t), ferme, FlecheDesAutres).Decale(d);
      }
    });
    if (contours.size() == 1) MesureErreur(contours[0], ferme, s, d, m);
    return m;
  });
#endif
  for (const char* nom : {"clipper2", "cavalier"}) {
    const banc::DeNode moteur(nom);
    if (!moteur.Present()) continue;
    essaie(nom, [&] {
      std::vector<Chemin> amincis;
      const double amincit = banc::TempsMoyen([&] {
        amincis.clear();
        for (const Records& contour : contours) {
          amincis.push_back(Aminci(contour));
          if (ferme) amincis.back().pop_back();
        }
      });
      const auto r = moteur.Decale(amincis, ferme, d, FlecheDesAutres);
      if (!r) std::_Exit(1);
      Mesures m;
      m.secondes = amincit + r->secondes;
      if (contours.size() == 1) MesureErreur(contours[0], ferme, r->segments, d, m);
      return m;
    });
  }
  return autres;
}

Ligne Compare(const Cas& cas) {
  Ligne l{cas.nom, cas.points, cas.d, cas.lisse, {}, {}, {}};
  l.notre = banc::DansUnEnfant<Mesures>(
      [&] {
        const Records source = EnRecords(cas.forme(cas.points), cas.ferme);
        Records t;
        Mesures m = Notre(cas.points, [&] {
          t = source;
          DecalSequence(t, Tolerance, static_cast<float>(cas.d), 100);
        });
        MesureErreur(source, cas.ferme, SegmentsDe(t), cas.d, m);
        if (cas.croise) m.manque = 0;
        return m;
      },
      NotreLimite);
  l.clipper = banc::DansUnEnfant<Mesures>(
      [&] {
        const Records source = EnRecords(cas.forme(cas.points), cas.ferme);
        std::vector<Segment> s;
        Mesures m;
        m.secondes = banc::TempsMoyen([&] {
          const Records t = source;  // as ours has to
          s = DeClipper(t, cas.ferme).Decale(cas.d);
        });
        MesureErreur(source, cas.ferme, s, cas.d, m);
        return m;
      },
      limite);
  l.autres = Autres({EnRecords(cas.forme(cas.points), cas.ferme)}, cas.ferme, cas.d);
  return l;
}

// Every contour of a page by itself: what small shapes cost.
std::vector<Records> Page() {
  std::vector<Records> contours;
  for (const std::string& police : ListePolices()) {
    for (int i = 0; i < 30; ++i) {
      Records t;
      if (Texte(t, "The quick brown fox jumps over 21 lazy dogs & cats.", police, 0, 0) <= 0) break;
      for (std::size_t a = 0, b = 0; a < t.size(); a = b) {
        while (b < t.size() && t[b].Seq == t[a].Seq) ++b;
        contours.emplace_back(t.begin() + static_cast<std::ptrdiff_t>(a),
                              t.begin() + static_cast<std::ptrdiff_t>(b));
      }
    }
    if (!contours.empty()) break;
  }
  return contours;
}

Ligne CompareTexte(double d) {
  std::size_t points = 0;
  const std::vector<Records> page = Page();
  for (const Records& t : page) points += t.size();
  Ligne l{std::to_string(page.size()) + " contours of text", points, d, true, {}, {}, {}};
  l.notre = banc::DansUnEnfant<Mesures>(
      [&] {
        Mesures m = Notre(points, [&] {
          for (Records t : page) DecalSequence(t, Tolerance, static_cast<float>(d), 100);
        });
        for (const Records& contour : page) {
          Records t = contour;
          Mesures un;
          if (DecalSequence(t, Tolerance, static_cast<float>(d), 100) == 0) continue;
          MesureErreur(contour, true, SegmentsDe(t), d, un);
          m.erreur = std::max(m.erreur, un.erreur);
          m.manque = std::max(m.manque, un.manque);
        }
        return m;
      },
      NotreLimite);
  l.clipper = banc::DansUnEnfant<Mesures>(
      [&] {
        Mesures m;
        m.secondes = banc::TempsMoyen([&] {
          for (const Records& contour : page) {
            const Records t = contour;  // as ours has to
            DeClipper(t, true).Decale(d);
          }
        });
        return m;
      },
      limite);
  l.autres = Autres(page, true, d);
  return l;
}

// A fill, and Clipper's rings at the same step.
Ligne ComparePoche(const char* nom, const Chemin& c, double rayon, int recouvrement) {
  Ligne l{nom, c.size(), rayon, true, {}, {}, {}};
  const Records source = EnRecords(c, true);
  l.notre = banc::DansUnEnfant<Mesures>(
      [&] {
        Mesures m = Notre(c.size(), [&] {
          Records t = source;
          DecalSequence(t, Tolerance, static_cast<float>(rayon), recouvrement);
        });
        m.octets = 0;  // the fill of a square has a thousand times the points of the square
        return m;
      },
      NotreLimite);
  const double pas = rayon * 2 * (100 - recouvrement) / 100.0;
  l.clipper = banc::DansUnEnfant<Mesures>(
      [&] {
        Mesures m;
        m.secondes = banc::TempsMoyen([&] {
          DeClipper clipper(source, true);
          for (double p = rayon; !clipper.Decale(p).empty(); p += pas) ++m.pieces;
        });
        return m;
      },
      limite);
  return l;
}

// One point of ten a mark.
void AvecMarques(std::size_t points) {
  double t[2] = {};
  Records source = EnRecords(banc::Lisse(points), true);
  for (const int k : {0, 1}) {
    const auto m = banc::DansUnEnfant<Mesures>(
        [&] {
          for (std::size_t i = 0; k == 1 && i < source.size(); i += 10) source[i].Cde = CodePC;
          return Notre(points, [&] {
            Records r = source;
            DecalSequence(r, Tolerance, 3.0F, 100);
          });
        },
        NotreLimite);
    t[k] = m ? m->secondes : -1;
  }
  std::printf("smooth outline of %zu points with %zu marks: %.4f s, without %.4f s\n", points, points / 10, t[1],
              t[0]);
}

}  // namespace

int main(int argc, char** argv) {
  const std::size_t max = argc > 1 ? static_cast<std::size_t>(std::atol(argv[1])) : 2000000;
  if (argc > 2) limite = static_cast<unsigned>(std::atoi(argv[2]));
  const std::string famille = argc > 3 ? argv[3] : "";
  const auto bruite = [](std::size_t n) { return banc::Bruite(n, 0.02); };
  const Cas cas[] = {
      {"smooth", 10000, banc::Lisse, true, 3, true},
      {"smooth", 100000, banc::Lisse, true, 3, true},
      {"smooth", 1000000, banc::Lisse, true, 3, true},
      {"noisy", 100000, bruite, true, 3},
      {"noisy", 1000000, bruite, true, 3},
      {"noisy, outside", 100000, bruite, true, -3},
      {"noisy, outside", 1000000, bruite, true, -3},
      {"Koch, inside", 196608, banc::Koch, true, 0.5},
      {"Koch, inside", 786432, banc::Koch, true, 0.5},
      {"comb", 10000, banc::Peigne, true, -1},
      {"comb", 100000, banc::Peigne, true, -1},
      {"comb", 1000000, banc::Peigne, true, -1},
      {"spiral, exact fit", 100000, banc::Spirale, true, -1},
      {"spiral, exact fit", 1000000, banc::Spirale, true, -1},
      {"spiral, inside", 100000, banc::Spirale, true, 0.5},
      {"spiral, inside", 1000000, banc::Spirale, true, 0.5},
      {"dense scan", 100000, banc::Foule, true, 1, false, true},
      {"dense scan", 1000000, banc::Foule, true, 1, false, true},
      {"open dense scan", 100000, banc::Foule, false, 1},
      {"open dense scan", 1000000, banc::Foule, false, 1},
      {"open wave", 10000, banc::Onde, false, 1},
      {"open, crossing itself", 100000, banc::Marche, false, 1},
      {"open, crossing itself", 1000000, banc::Marche, false, 1},
  };
  const auto voulu = [&famille](const std::string& nom) { return nom.find(famille) != std::string::npos; };
  Tableau tableau;
  Tableau::Titre();
  for (const Cas& c : cas) {
    if (c.points <= max && voulu(c.nom)) tableau.Ecrit(Compare(c));
  }
  for (const double d : {0.5, -0.5, 3.0}) {
    if (voulu("text")) tableau.Ecrit(CompareTexte(d));
  }
  if (voulu("pocket")) {
    tableau.Ecrit(ComparePoche("pocket, 200 mm square", {{0, 0}, {200, 0}, {200, 200}, {0, 200}}, 0.5, 40));
    tableau.Ecrit(ComparePoche("pocket, star", banc::Etoile(10000), 0.5, 40));
  }
  for (const std::size_t n : {std::size_t{100000}, std::size_t{1000000}}) {
    if (n <= max && voulu("marks")) AvecMarques(n);
  }
  std::printf("goals missed: %d\n", tableau.Manques());
  return 0;
}
