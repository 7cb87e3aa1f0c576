// Drawings that are cut and drawn on several threads: nothing of what is read, refused or counted changes.
#include <algorithm>
#include <iterator>

#include "tests/unit/closed/pathwerk/lecture/dxf/Outils.h"

using namespace essai;
using pathwerk::Erreur;
using pathwerk::lecture::Lecture;

namespace {

Lecture LitCoupe(std::string_view data, std::size_t octets, unsigned fils) {
  Lecture l;
  pathwerk::OptionsLecture options;
  options.Fils = fils;
  pathwerk::lecture::dxf::LireDxf(data, options, l, octets);
  return l;
}

void AttendMeme(const Lecture& a, const Lecture& b) {
  ASSERT_EQ(a.traits.size(), b.traits.size());
  for (std::size_t i = 0; i < a.traits.size(); ++i) {
    EXPECT_EQ(a.traits[i].points, b.traits[i].points) << i;
    EXPECT_EQ(a.traits[i].nature, b.traits[i].nature) << i;
    EXPECT_EQ(a.traits[i].calque, b.traits[i].calque) << i;
    EXPECT_EQ(a.traits[i].ligne, b.traits[i].ligne) << i;
  }
  EXPECT_EQ(a.calques.Tous(), b.calques.Tous());
  EXPECT_EQ(a.ordreImpose, b.ordreImpose);
  EXPECT_EQ(a.rapport.Ignores, b.rapport.Ignores);
  EXPECT_EQ(a.rapport.PremieresLignes, b.rapport.PremieresLignes);
  EXPECT_EQ(a.rapport.Numero, b.rapport.Numero);
  EXPECT_EQ(a.rapport.Ligne, b.rapport.Ligne);
  EXPECT_EQ(a.rapport.Detail, b.rapport.Detail);
  EXPECT_EQ(a.rapport.Tronque, b.rapport.Tronque);
}

// Read whole, and cut at every size that makes a difference, on 1, 2 and 7 threads.
void AttendMemeCoupe(const std::string& data) {
  const Lecture entiere = LitCoupe(data, 0, 1);
  for (const unsigned fils : {1U, 2U, 7U}) {
    for (const std::size_t octets : {1U, 2U, 7U, 40U, 64U, 100U, 333U, 1000U}) {
      SCOPED_TRACE(testing::Message() << fils << " threads, " << octets << " bytes");
      AttendMeme(LitCoupe(data, octets, fils), entiere);
    }
  }
}

constexpr long LignesDebut = 4;   // of "0 SECTION 2 ENTITIES"
constexpr long LignesTrait = 12;  // of each of these entities
std::string Trait(int k) {
  const std::string n = std::to_string(k);
  return "0=LINE 8=C" + std::to_string(k % 5) + " 10=" + n + " 20=" + n + ".5 11=" + n + ".25 21=-" + n + " ";
}
std::string Traits(int nombre) {
  std::string t;
  for (int k = 0; k < nombre; ++k) t += Trait(k);
  return t;
}

std::vector<std::string> Lignes(const std::string& texte) {
  std::vector<std::string> lignes;
  for (std::size_t i = 0; i < texte.size();) {
    const std::size_t fin = texte.find('\n', i);
    lignes.push_back(texte.substr(i, fin - i));
    i = fin + 1;
  }
  return lignes;
}
std::string EnTexte(const std::vector<std::string>& lignes) {
  std::string t;
  for (const std::string& l : lignes) t += l + "\n";
  return t;
}

const std::string Blocs =
    "0=BLOCK 2=B 10=1 20=1 0=LINE 8=0 10=0 20=0 11=3 21=0 0=INSERT 2=I 10=5 20=5 0=ENDBLK "
    "0=BLOCK 2=I 10=0 20=0 0=CIRCLE 8=C1 10=0 20=0 40=2 0=ENDBLK ";

}  // namespace

TEST(DessinCoupe, EachPathHasItsPlaceAndItsLine) {
  const std::string texte = Texte(Section(Traits(50)));
  for (const unsigned fils : {1U, 2U, 7U}) {
    const Lecture l = LitCoupe(texte, 90, fils);
    ASSERT_EQ(l.traits.size(), 50U);
    for (int k = 0; k < 50; ++k) {
      const auto& t = l.traits[static_cast<std::size_t>(k)];
      EXPECT_EQ(t.ligne, LignesDebut + LignesTrait * k + 2);  // of the name
      ASSERT_EQ(t.points.size(), 2U);
      AttendPoint(t.points[0], k, k + 0.5);
      AttendPoint(t.points[1], k + 0.25, -k);
      EXPECT_EQ(l.calques.Tous()[t.calque].Nom, "C" + std::to_string(k % 5));
    }
  }
}

TEST(DessinCoupe, EveryKindOfEntityIsReadAsWhole) {
  std::string entites;
  for (int k = 0; k < 12; ++k) {
    entites += Trait(k);
    entites += "0=LWPOLYLINE 8=0 90=3 70=1 10=0 20=0 42=0.5 10=10 20=0 10=10 20=10 ";
    entites += "0=POLYLINE 8=P 66=1 70=1 0=VERTEX 10=0 20=0 0=VERTEX 10=9 20=0 0=VERTEX 10=9 20=9 0=SEQEND ";
    entites += "0=CIRCLE 8=0 10=5 20=5 40=2.5 0=POINT 8=0 10=3 20=3 0=TEXT 8=0 10=0 20=0 40=2 1=Titre ";
    entites += "0=INSERT 8=C2 2=B 10=" + std::to_string(k) + " 20=0 50=30 0=VIEWPORT 8=0 ";
    entites += "0=SPLINE 70=8 71=2 72=6 73=3 40=0 40=0 40=0 40=1 40=1 40=1 10=0 20=0 10=1 20=2 10=2 20=0 ";
    entites += "0=HATCH 8=0 2=S 70=1 91=1 92=2 72=0 73=1 93=3 10=50 20=0 10=60 20=0 10=60 20=10 97=0 75=0 ";
    if (k == 7) entites += "0=LWPOLYLINE 8=0 90=3 70=1 10=50 20=0 10=60 20=0 10=60 20=10 ";
  }
  const std::string texte = AvecBlocs(Blocs, entites);
  ASSERT_EQ(Ignores(LitCoupe(texte, 200, 2), "TEXT"), 12);
  ASSERT_EQ(Ignores(LitCoupe(texte, 200, 2), "HATCH"), 12);  // the polyline of the eighth round draws them all
  AttendMemeCoupe(texte);
}

TEST(DessinCoupe, LineEndsOfTwoBytesAreNeverCut) {
  const Groupes g = DeMots(Section(Traits(30)));
  for (const char* fin : {"\r\n", "\r\r\n", " \r\n"}) {
    SCOPED_TRACE(testing::PrintToString(fin));
    const std::string texte = EnTexte(g, fin);
    for (std::size_t octets = 1; octets < 60; ++octets) {
      const Lecture l = LitCoupe(texte, octets, 2);
      ASSERT_EQ(l.traits.size(), 30U) << octets;
      EXPECT_EQ(l.traits[29].ligne, LignesDebut + LignesTrait * 29 + 2) << octets;
    }
  }
  AttendMemeCoupe(EnTexte(g, "\r"));
}

TEST(DessinCoupe, AWrongCodeIsRefusedInItsLineWhereverItStands) {
  const std::vector<std::string> bonnes = Lignes(Texte(Section(Traits(8))));
  for (std::size_t i = LignesDebut; i + 4 < bonnes.size(); i += 2) {
    std::vector<std::string> lignes = bonnes;
    lignes[i] = "code";
    for (const unsigned fils : {1U, 2U, 7U}) {
      const Lecture l = LitCoupe(EnTexte(lignes), 64, fils);
      ASSERT_EQ(l.rapport.Numero, Erreur::Dxf) << i;
      EXPECT_EQ(l.rapport.Ligne, static_cast<long>(i) + 1);
      EXPECT_EQ(l.rapport.Detail, "code");
    }
  }
}

TEST(DessinCoupe, ANumberThatIsNoneIsRefusedInItsLineWhereverItStands) {
  const std::vector<std::string> bonnes = Lignes(Texte(Section(Traits(20))));
  for (long k = 0; k < 20; ++k) {
    std::vector<std::string> lignes = bonnes;
    const long ligne = LignesDebut + LignesTrait * k + 8;  // the value of group 20
    lignes[static_cast<std::size_t>(ligne - 1)] = "1.2.3";
    const Lecture l = LitCoupe(EnTexte(lignes), 64, 2);
    ASSERT_EQ(l.rapport.Numero, Erreur::Dxf) << k;
    EXPECT_EQ(l.rapport.Ligne, ligne);
    EXPECT_EQ(l.rapport.Detail, "LINE 20: 1.2.3");
  }
}

TEST(DessinCoupe, OfTwoFaultsTheFirstIsTold) {
  std::vector<std::string> lignes = Lignes(Texte(Section(Traits(40))));
  lignes[LignesDebut + LignesTrait * 31] = "second";
  lignes[LignesDebut + LignesTrait * 9] = "first";
  const Lecture l = LitCoupe(EnTexte(lignes), 64, 7);
  EXPECT_EQ(l.rapport.Detail, "first");
  EXPECT_EQ(l.rapport.Ligne, LignesDebut + LignesTrait * 9 + 1);
}

TEST(DessinCoupe, ALineThatIsMissingIsFoundOut) {
  const std::vector<std::string> bonnes = Lignes(Texte(Section(Traits(20))));
  for (std::size_t i = 0; i < bonnes.size(); i += 5) {
    std::vector<std::string> lignes = bonnes;
    lignes.erase(lignes.begin() + static_cast<std::ptrdiff_t>(i));
    SCOPED_TRACE(i);
    const std::string texte = EnTexte(lignes);
    AttendMeme(LitCoupe(texte, 64, 2), LitCoupe(texte, 0, 1));
  }
}

TEST(DessinCoupe, AFileThatIsCutOffAnywhereKeepsWhatIsWhole) {
  const std::string texte = Texte(Section(Traits(10)));
  for (std::size_t n = 0; n <= texte.size(); ++n) {
    SCOPED_TRACE(n);
    AttendMeme(LitCoupe(texte.substr(0, n), 40, 2), LitCoupe(texte.substr(0, n), 0, 1));
  }
}

TEST(DessinCoupe, TheLastLineNeedsNoEnd) {
  std::string texte = Texte(Section(Traits(20)));
  texte.pop_back();
  for (const unsigned fils : {1U, 2U, 7U}) {
    const Lecture l = LitCoupe(texte, 64, fils);
    EXPECT_EQ(l.traits.size(), 20U);
    EXPECT_FALSE(l.rapport.Tronque);
  }
}

TEST(DessinCoupe, CommentsAndEmptyLinesBetweenEntitiesCount) {
  std::string texte = "0\nSECTION\n2\nENTITIES\n";
  std::vector<long> noms;
  long ligne = 4;
  for (int k = 0; k < 20; ++k) {
    texte += "999\n0\n\n999\nLINE\n 0 \nLINE\n10\n1\n20\n\n2\n11\n3\n21\n4\n";
    noms.push_back(ligne + 7);
    ligne += 16;
  }
  texte += "0\nENDSEC\n0\nEOF\n";
  const Lecture l = LitCoupe(texte, 50, 2);
  ASSERT_EQ(l.traits.size(), 20U);
  for (std::size_t k = 0; k < 20; ++k) EXPECT_EQ(l.traits[k].ligne, noms[k]);
  AttendMemeCoupe(texte);
}

TEST(DessinCoupe, ANameThatLooksLikeTheEndOfTheSectionIsAName) {
  std::string entites;
  for (int k = 0; k < 20; ++k) entites += "0=LINE 8=ENDSEC 10=1 20=2 11=3 21=4 0=TEXT 1=ENDSEC 70=0 ";
  const Lecture l = LitCoupe(Texte(Section(entites)), 50, 2);
  EXPECT_EQ(l.traits.size(), 20U);
  EXPECT_EQ(l.rapport.PremieresLignes.at("TEXT"), LignesDebut + 12 + 2);
}

TEST(DessinCoupe, SectionsThatEndOtherwiseAreReadAsTheyStand) {
  AttendMemeCoupe(Texte("0=SECTION 2=ENTITIES " + Traits(20) + "0=SECTION 2=OBJECTS 0=X 0=ENDSEC 0=EOF "));
  AttendMemeCoupe(Texte("0=SECTION 2=ENTITIES " + Traits(20) + "0=EOF " + Traits(20) + "0=ENDSEC "));
  AttendMemeCoupe(Texte("0=SECTION 2=ENTITIES " + Traits(20) + "0=ENDBLK " + Traits(20) + "0=ENDSEC 0=EOF "));
  AttendMemeCoupe(Texte("0=SECTION 2=ENTITIES " + Traits(20) + "0=ENDSEC 0=SECTION 2=OBJECTS 0=X "));
  AttendMemeCoupe(Texte("0=SECTION 2=ENTITIES " + Traits(20)));
}

TEST(DessinCoupe, SeveralSectionsAreDrawnInTheirOrder) {
  const std::string texte = Texte("0=SECTION 2=ENTITIES " + Traits(20) + "0=ENDSEC 0=SECTION 2=TABLES 0=TABLE " +
                                  "2=LAYER 0=LAYER 2=C1 70=1 0=ENDTAB 0=ENDSEC 0=SECTION 2=ENTITIES " + Traits(1) +
                                  "0=ENDSEC 0=SECTION 2=ENTITIES " + Traits(30) + "0=ENDSEC 0=EOF ");
  // Every fifth lies on a layer that is frozen further below.
  EXPECT_EQ(LitCoupe(texte, 64, 2).traits.size(), 16U + 1U + 24U);
  AttendMemeCoupe(texte);
}

TEST(DessinCoupe, MoreKindsThanAreToldApartAreCountedTogether) {
  std::string entites;
  for (int k = 0; k < 150; ++k) entites += "0=GENRE" + std::to_string(k) + " 8=0 " + Trait(k);
  const Lecture l = LitCoupe(Texte(Section(entites)), 64, 2);
  EXPECT_EQ(Ignores(l, "GENRE99"), 1);
  EXPECT_EQ(Ignores(l, "..."), 50);
}

TEST(DessinCoupe, ABlockInsideItselfIsRefusedAtItsInsertion) {
  const std::string bloc = "0=BLOCK 2=B 10=0 20=0 0=INSERT 2=B 10=0 20=0 0=ENDBLK ";
  const std::string texte = AvecBlocs(bloc, Traits(30) + "0=INSERT 2=B 10=0 20=0 " + Traits(30));
  EXPECT_EQ(LitCoupe(texte, 64, 2).rapport.Numero, Erreur::BlocCyclique);
  AttendMeme(LitCoupe(texte, 64, 7), LitCoupe(texte, 0, 1));
}

TEST(DessinCoupe, StretchesTakeTheirRoomFromOneBudget) {
  // 20 insertions of 3,200 circles of 50 chords: 2.9 MB each, and 22 MB are there for all.
  std::string bloc = "0=BLOCK 2=B 10=0 20=0 ";
  for (int k = 0; k < 50; ++k) bloc += "0=CIRCLE 10=0 20=0 40=5 ";
  std::string entites;
  for (int k = 0; k < 20; ++k) entites += "0=INSERT 2=B 10=0 20=0 70=8 71=8 44=20 45=20 " + Trait(k);
  const std::string texte = AvecBlocs(bloc + "0=ENDBLK ", entites);
  for (const unsigned fils : {1U, 2U, 7U}) {
    EXPECT_EQ(LitCoupe(texte, 64, fils).rapport.Numero, Erreur::Memoire) << fils;
  }
}

TEST(DessinCoupe, TheShareDoneGrowsToOne) {
  const std::string texte = Texte(Section(Traits(60)));
  pathwerk::OptionsLecture options;
  std::vector<double> parts;
  options.Fils = 2;
  options.Avancement = [&](double part) { parts.push_back(part); };
  Lecture l;
  pathwerk::lecture::dxf::LireDxf(texte, options, l, 100);
  ASSERT_GT(parts.size(), 3U);
  EXPECT_TRUE(std::is_sorted(parts.begin(), parts.end()));
  EXPECT_EQ(parts.back(), 1.0);
}
