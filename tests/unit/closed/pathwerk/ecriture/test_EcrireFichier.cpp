#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <csignal>
#include <cstring>
#include <limits>
#include <random>
#include <sstream>

#include "tests/unit/closed/pathwerk/Aide.h"

using namespace aide;
using pathwerk::CodeDeRang;
using pathwerk::EcrireFichier;
using pathwerk::Erreur;

namespace {

std::vector<PointTrace> Points(const std::vector<std::vector<std::pair<float, float>>>& sequences) {
  std::vector<PointTrace> p;
  for (std::size_t i = 0; i < sequences.size(); ++i) {
    for (const auto& [x, y] : sequences[i]) p.push_back({x, y, pathwerk::CodePD, CodeDeRang(i)});
  }
  return p;
}

std::int32_t Ecris(const std::vector<PointTrace>& p, const std::string& chemin,
                   const std::string& commentaire = "") {
  std::string c = commentaire;
  c.resize(260, ' ');
  return EcrireFichier(p, chemin, c);
}

// Same points (equal floats have equal bits, but for the sign of a zero), in runs of the same lengths.
void AttendMemes(const std::vector<PointTrace>& lu, const std::vector<PointTrace>& ecrit, const std::string& ou) {
  ASSERT_EQ(lu.size(), ecrit.size()) << ou;
  for (std::size_t i = 0; i < lu.size(); ++i) {
    ASSERT_TRUE(MemePlace(lu[i], ecrit[i]))
        << ou << " point " << i << ": " << lu[i].X << ' ' << lu[i].Y << " for " << ecrit[i].X << ' ' << ecrit[i].Y;
    if (i > 0) {
      ASSERT_EQ(lu[i].Seq == lu[i - 1].Seq, ecrit[i].Seq == ecrit[i - 1].Seq) << ou << " point " << i;
    }
  }
}

void AllerRetour(const std::vector<PointTrace>& p) {
  const Dossier d;
  for (const char* nom : {"a.dxf", "a.dat"}) {
    ASSERT_EQ(Ecris(p, d / nom, "essai"), 0) << nom;
    const auto f = Lis(d / nom);
    ASSERT_EQ(f.Nombre, static_cast<int>(p.size())) << nom << ' ' << f.Message;
    AttendMemes(f.Points, p, nom);
  }
}

// What a program that knows nothing of this system sees in a DXF: polylines with flag and vertices.
struct Polyligne {
  int drapeau = 0;
  std::vector<Vec2> sommets;
};
std::vector<Polyligne> Polylignes(const std::string& texte) {
  std::vector<Polyligne> p;
  std::istringstream f(texte);
  std::string code;
  std::string valeur;
  bool sommet = false;
  while (std::getline(f, code) && std::getline(f, valeur)) {
    valeur.erase(valeur.find_last_not_of('\r') + 1);
    const int c = std::stoi(code);
    if (c == 0) sommet = valeur == "VERTEX";
    if (c == 0 && valeur == "POLYLINE") p.emplace_back();
    if (c == 0 && sommet) p.back().sommets.emplace_back();
    if (p.empty()) continue;
    if (c == 70 && !sommet) p.back().drapeau = std::stoi(valeur);
    if (c == 10 && sommet) p.back().sommets.back().x = std::stod(valeur);
    if (c == 20 && sommet) p.back().sommets.back().y = std::stod(valeur);
  }
  return p;
}

}  // namespace

TEST(EcrireFichier, OrderDirectionAndStartComeBack) {
  AllerRetour(Points({{{0, 0}, {100, 0}, {100, 100}, {0, 100}, {0, 0}},  // outermost counter-clockwise, first
                      {{10, 10}, {10, 20}, {20, 20}, {10, 10}},
                      {{50, 50}, {60, 50}},
                      {{60, 50}, {70, 50}},  // could be joined
                      {{60, 50}, {70, 50}},  // a duplicate
                      {{5, 5}, {5, 5}}}));   // a hole
}

TEST(EcrireFichier, OddPathsComeBack) {
  AllerRetour(Points({{{1, 1}},
                      {{1, 1}, {1, 1}, {1, 1}},
                      {{1, 1}, {2, 2}, {1, 1}},
                      {{1, 1}, {2, 2}, {1, 1}, {1, 1}},
                      {{1, 1}, {1, 1}, {2, 2}, {3, 1}, {1, 1}},
                      {{0.0F, 0.0F}, {1, 0}, {1, 1}, {-0.0F, 0.0F}},
                      {{999, 999}, {999, 999}},
                      {{2, 3}, {4, 5}},
                      {{2, 3}, {4, 5}}}));
}

TEST(EcrireFichier, EveryFloatComesBackBitForBit) {
  std::vector<std::pair<float, float>> s = {
      {0.1F, -0.1F},
      {1.0F / 3, 2.0F / 3},
      {std::numeric_limits<float>::min(), -std::numeric_limits<float>::denorm_min()},
      {1e7F, -9999999},
      {-0.0F, 0.0F},
      {9999999.5F, 8388607.5F},
      {1.17549421e-38F, 1.5e-45F}};
  std::mt19937 hasard(11);
  std::uniform_int_distribution<std::uint32_t> u;
  while (s.size() < 5000) {
    std::uint32_t bits[2] = {u(hasard), u(hasard)};
    float x = 0;
    float y = 0;
    std::memcpy(&x, &bits[0], 4);
    std::memcpy(&y, &bits[1], 4);
    if (std::fabs(x) <= 1e7F && std::fabs(y) <= 1e7F) s.emplace_back(x, y);
  }
  AllerRetour(Points({s}));
}

TEST(EcrireFichier, AsManySequencesAsThereAreCodes) {
  std::vector<std::vector<std::pair<float, float>>> s;
  for (std::size_t i = 0; i < pathwerk::NbCodes(); ++i) {
    const auto x = static_cast<float>(i);
    s.push_back({{x, 0}, {x, 1}});
  }
  AllerRetour(Points(s));
}

TEST(EcrireFichier, MarksAreWrittenAsOrdinaryPoints) {
  auto p = Points({{{0, 0}, {5, 0}, {10, 0}}});
  p[1].Cde = pathwerk::CodePC;
  const Dossier d;
  Ecris(p, d / "a.dat");
  const auto f = Lis(d / "a.dat");
  ASSERT_EQ(f.Nombre, 3);
  EXPECT_EQ(f.Points[1].Cde, pathwerk::CodePD);
}

TEST(EcrireFichier, DxfIsR12PolylinesForOtherPrograms) {
  const Dossier d;
  ASSERT_EQ(Ecris(Points({{{0, 0}, {10, 0}, {10, 5.5F}, {0, 0}}, {{1, 2}, {3, 4}}, {{7, 7}, {7, 7}}}), d / "a.dxf",
                  "piece - X=10,00 - Y=5,50"),
            0);
  const std::string t = Octets(d / "a.dxf");
  EXPECT_TRUE(t.starts_with("999\r\nOVELIN\r\n999\r\npiece - X=10,00 - Y=5,50\r\n"));
  EXPECT_TRUE(t.ends_with("  0\r\nENDSEC\r\n  0\r\nEOF\r\n"));
  EXPECT_NE(t.find("AC1009"), std::string::npos);
  const auto p = Polylignes(t);
  ASSERT_EQ(p.size(), 3U);
  EXPECT_EQ(p[0].drapeau, 1);
  EXPECT_EQ(p[0].sommets, (std::vector<Vec2>{{0, 0}, {10, 0}, {10, 5.5}}));
  EXPECT_EQ(p[1].drapeau, 0);
  EXPECT_EQ(p[1].sommets, (std::vector<Vec2>{{1, 2}, {3, 4}}));
  EXPECT_EQ(p[2].sommets, (std::vector<Vec2>{{7, 7}, {7, 7}}));
}

TEST(EcrireFichier, DatHasOneRowAPointAndAMarkerLineASequence) {
  const Dossier d;
  ASSERT_EQ(Ecris(Points({{{0, 0.25F}, {10, -1}}, {{3, 4}, {5, 6}}}), d / "a.dat", "piece"), 0);
  EXPECT_EQ(Octets(d / "a.dat"), "#OVELIN piece\r\n#1\r\n0.0 0.25\r\n10.0 -1.0\r\n#2\r\n3.0 4.0\r\n5.0 6.0\r\n");
}

TEST(EcrireFichier, AnyExtensionButDxfGivesDat) {
  const Dossier d;
  const auto p = Points({{{0, 0}, {1, 1}}});
  EXPECT_EQ(Ecris(p, d / "a.DxF"), 0);
  EXPECT_EQ(Ecris(p, d / "a"), 0);
  EXPECT_TRUE(Octets(d / "a.DxF").starts_with("999"));
  EXPECT_TRUE(Octets(d / "a").starts_with("#OVELIN\r\n"));
}

TEST(EcrireFichier, TheCommentComesBackPadded) {
  const Dossier d;
  std::string c = "piece - X=10.00";
  c.resize(260, ' ');
  const std::string avant = c;
  EXPECT_EQ(EcrireFichier(Points({{{0, 0}, {1, 1}}}), d / "a.dat", c), 0);
  EXPECT_EQ(c, avant);
}

TEST(EcrireFichier, ACommentCannotBecomeContent) {
  const Dossier d;
  const auto p = Points({{{0, 0}, {1, 1}}});
  for (const char* nom : {"a.dat", "a.dxf"}) {
    ASSERT_EQ(Ecris(p, d / nom, "x\r\n#9\n  0\r\nEOF\n5 5"), 0);
    AttendMemes(Lis(d / nom).Points, p, nom);
  }
  EXPECT_EQ(Ecris(p, d / "b.dat", std::string(260, 'x')), 0);
  AttendMemes(Lis(d / "b.dat").Points, p, "b.dat");
}

TEST(EcrireFichier, CommentBytesPassAsTheyAre) {
  const Dossier d;
  Ecris(Points({{{0, 0}, {1, 1}}}), d / "a.dat",
        "pi\xE8"
        "ce \xC3\xA9");
  EXPECT_TRUE(Octets(d / "a.dat")
                  .starts_with("#OVELIN pi\xE8"
                               "ce \xC3\xA9\r\n"));
}

TEST(EcrireFichier, PathWithANulBehindIt) {
  const Dossier d;
  EXPECT_EQ(Ecris(Points({{{0, 0}, {1, 1}}}), (d / "a.dat") + std::string(1, '\0')), 0);
  EXPECT_TRUE(std::filesystem::exists(d / "a.dat"));
}

TEST(EcrireFichier, ReplacesAFileKeepsItsModeAndLeavesNothingBeside) {
  const Dossier d;
  const std::string chemin = d.Ecrit("a.dat", "old");
  ::chmod(chemin.c_str(), 0640);
  ASSERT_EQ(Ecris(Points({{{0, 0}, {1, 1}}}), chemin), 0);
  EXPECT_TRUE(Octets(chemin).starts_with("#OVELIN"));
  struct stat etat {};
  ::stat(chemin.c_str(), &etat);
  EXPECT_EQ(etat.st_mode & 0777, 0640U);
  EXPECT_EQ(d.NombreDeFichiers(), 1U);
}

TEST(EcrireFichier, ALinkStaysALink) {
  const Dossier d;
  d.Ecrit("vrai.dat", "old");
  std::filesystem::create_symlink("vrai.dat", d / "lien.dat");
  ASSERT_EQ(Ecris(Points({{{0, 0}, {1, 1}}}), d / "lien.dat"), 0);
  EXPECT_TRUE(std::filesystem::is_symlink(d / "lien.dat"));
  EXPECT_TRUE(Octets(d / "vrai.dat").starts_with("#OVELIN"));
}

TEST(EcrireFichier, AFailureNamesFileAndReasonAndLeavesWhatWasThere) {
  const Dossier d;
  const auto p = Points({{{0, 0}, {1, 1}}});
  std::string c(260, ' ');
  EXPECT_EQ(EcrireFichier(p, d / "absent/a.dat", c), static_cast<int>(Erreur::Ecriture));
  EXPECT_EQ(SansBlancsFinaux(c), "a.dat: No such file or directory");
  EXPECT_EQ(c.size(), 260U);

  std::filesystem::create_directory(d / "b.dxf");
  EXPECT_EQ(EcrireFichier(p, d / "b.dxf", c), static_cast<int>(Erreur::Ecriture));
  EXPECT_EQ(SansBlancsFinaux(c), "b.dxf: Is a directory");

  const std::string protege = d.Ecrit("c.dat", "old");
  ::chmod(protege.c_str(), 0444);
  EXPECT_EQ(EcrireFichier(p, protege, c), static_cast<int>(Erreur::Ecriture));  // for root as well
  EXPECT_EQ(SansBlancsFinaux(c), "c.dat: Permission denied");
  EXPECT_EQ(Octets(protege), "old");
  EXPECT_EQ(d.NombreDeFichiers(), 2U);
}

TEST(EcrireFichier, AFullDiskLeavesWhatWasThere) {
  // A limit on the size of files stands for the full disk: the writing fails in its middle.
  const Dossier d;
  const std::string chemin = d.Ecrit("a.dat", "old");
  std::vector<PointTrace> p(200000);
  for (auto& q : p) q.Seq = CodeDeRang(0);
  const pid_t enfant = ::fork();
  if (enfant == 0) {
    ::signal(SIGXFSZ, SIG_IGN);
    const rlimit limite{100000, 100000};
    ::setrlimit(RLIMIT_FSIZE, &limite);
    std::string c(260, ' ');
    const bool bien = EcrireFichier(p, chemin, c) == static_cast<int>(Erreur::Ecriture) &&
                      SansBlancsFinaux(c) == "a.dat: File too large";
    ::_exit(bien ? 0 : 1);
  }
  int etat = -1;
  ::waitpid(enfant, &etat, 0);
  EXPECT_EQ(etat, 0);
  EXPECT_EQ(Octets(chemin), "old");
  EXPECT_EQ(d.NombreDeFichiers(), 1U);
}

TEST(EcrireFichier, CoordinatesThatAreNoneAreNotWritten) {
  const Dossier d;
  std::string c(260, ' ');
  EXPECT_EQ(EcrireFichier(Points({{{0, 0}, {std::nanf(""), 1}}}), d / "a.dat", c),
            static_cast<int>(Erreur::Ecriture));
  EXPECT_TRUE(SansBlancsFinaux(c).starts_with("a.dat: "));
  EXPECT_EQ(d.NombreDeFichiers(), 0U);
}

TEST(EcrireFichier, NoPointsGiveAFileWithoutPaths) {
  const Dossier d;
  EXPECT_EQ(Ecris({}, d / "a.dxf"), 0);
  EXPECT_EQ(Lis(d / "a.dxf").Nombre, 0);
}

TEST(EcrireFichier, TheFileIsTheSameForAnyNumberOfThreads) {
  const Dossier d;
  std::vector<PointTrace> p;
  // Runs that are shorter than what a thread composes, longer, open, closed, of one point, of one place.
  for (const std::size_t n : {1U, 2U, 3U, 4000U, 95U, 4U, 9000U, 1U, 5000U, 4096U, 7U}) {
    const pathwerk::Code2 code = CodeDeRang(p.size() % 900);
    for (std::size_t i = 0; i < n; ++i) {
      const float t = n == 4 ? 1.0F : static_cast<float>(i % (n - (n > 8 ? 1 : 0)));
      p.push_back({t / 3, -t * 7.1F, pathwerk::CodePD, code});
    }
  }
  for (const std::string nom : {"a.dxf", "a.dat"}) {
    std::string un(pathwerk::LongueurMessage, ' ');
    ASSERT_EQ(EcrireFichier(p, d / "1" + nom, un, 1), 0);
    const std::string reference = Octets(d / "1" + nom);
    EXPECT_GT(reference.size(), 23'000U * 10);
    for (const unsigned fils : {2U, 7U}) {
      std::string c(pathwerk::LongueurMessage, ' ');
      ASSERT_EQ(EcrireFichier(p, d / "n" + nom, c, fils), 0);
      EXPECT_TRUE(Octets(d / "n" + nom) == reference) << nom << ' ' << fils;
    }
    AttendMemes(Lis(d / "n" + nom).Points, p, nom);
  }
}
