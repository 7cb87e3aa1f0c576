// The manual names every window, every command with its keys, every command of the command line, in each of its
// languages, and only pictures that can be taken; messages stand in it as the program words them.
#include <QProcess>
#include <QTabWidget>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>

#include "app/ovelin/Composition.h"
#include "core/Texte8.h"
#include "core/Traduction.h"
#include "tests/places/Lieux.h"
#include "tests/ui/captures/Scenes.h"
#include "tests/ui/support/SupportUi.h"
#include "workspace/ui/TableCommandes.h"

namespace essai {
namespace {

using namespace ovelin;
namespace fs = std::filesystem;

std::vector<std::string> Lignes(const std::string& texte) {
  std::vector<std::string> lignes;
  std::istringstream flux(texte);
  for (std::string ligne; std::getline(flux, ligne);) lignes.push_back(ligne);
  return lignes;
}

fs::path DossierManuel(const std::string& langue) { return fs::path(DossierSource()) / "docs" / "manual" / langue; }

// All chapters of a language, in their order.
std::string Manuel(const std::string& langue) {
  std::set<fs::path> chapitres;
  for (const auto& e : fs::directory_iterator(DossierManuel(langue))) chapitres.insert(e.path());
  std::string texte;
  for (const fs::path& chapitre : chapitres) {
    std::ifstream f(chapitre);
    texte.append(std::istreambuf_iterator<char>(f), {});
  }
  return texte;
}

// As a menu shows it, without the mark of its key.
std::string SansMarque(std::string texte) {
  std::erase(texte, '&');
  return texte;
}

std::vector<std::string> Images(const std::string& texte) {
  static const std::regex Motif(R"(\]\(images/([^)]*)\.png\))");
  std::vector<std::string> noms;
  for (std::sregex_iterator i(texte.begin(), texte.end(), Motif), fin; i != fin; ++i) noms.push_back((*i)[1]);
  return noms;
}

// The first cells of the tables whose first column is called so.
std::vector<std::string> Cases(const std::string& texte, const std::string& colonne) {
  std::vector<std::string> cases;
  bool dedans = false;
  for (const std::string& ligne : Lignes(texte)) {
    if (!ligne.starts_with("| ")) {
      dedans = dedans && ligne.starts_with("|---");
      continue;
    }
    const std::string premiere = ligne.substr(2, ligne.find(" |", 2) - 2);
    if (premiere == colonne) {
      dedans = true;
    } else if (dedans) {
      cases.push_back(premiere);
    }
  }
  return cases;
}

class Manuels : public testing::TestWithParam<const char*> {
 protected:
  Manuels() : texte_(Manuel(GetParam())) { ChoisitLangue(GetParam()); }
  std::string texte_;
};
INSTANTIATE_TEST_SUITE_P(Langues, Manuels, testing::Values("fr", "en"),
                         [](const auto& langue) { return std::string(langue.param); });

TEST_P(Manuels, EveryWindowHasAHeadingWithItsTitle) {
  std::set<std::string> titres;
  for (const std::string& ligne : Lignes(texte_)) {
    if (ligne.starts_with("#")) titres.insert(ligne.substr(ligne.find(' ') + 1));
  }
  for (const LigneFenetre& fenetre : TableFenetres()) {
    const std::string titre = Traduire(fenetre.nom, "0");
    const bool nomme = std::any_of(titres.begin(), titres.end(), [&titre](const std::string& t) {
      return t == titre || t.ends_with(" " + titre);
    });
    EXPECT_TRUE(nomme) << fenetre.nom << ": " << titre;
  }
}

TEST_P(Manuels, EveryCommandStandsInItsTableWithItsKeys) {
  std::set<std::string> rangees;
  for (const std::string& ligne : Lignes(texte_)) {
    if (ligne.starts_with("| **")) rangees.insert(ligne);
  }
  for (const LigneCommande& c : TableCommandes()) {
    if (*c.menu == '\0') continue;
    const std::string nom = SansMarque(Traduire("F_Representation", c.nom));
    std::string touches = *c.touches == '\0' ? "" : std::string(c.touches) + " ";
    std::ranges::replace(touches, ';', ',');  // several keys stand as a list of words
    const std::string debut = "| **" + nom + "** | " + touches + "|";
    const bool nommee = std::any_of(rangees.begin(), rangees.end(),
                                    [&debut](const std::string& rangee) { return rangee.starts_with(debut); });
    EXPECT_TRUE(nommee) << c.nom << ": " << debut;
  }
}

TEST_P(Manuels, EveryCommandOfTheCommandLineIsThere) {
  QProcess programme;
  programme.start(QStringLiteral(OVELIN_CLI), {QStringLiteral("--help")});
  ASSERT_TRUE(programme.waitForFinished());
  const std::string aide = programme.readAllStandardOutput().toStdString();
  static const std::regex Motif("\n  ([a-z]+) ");
  const std::string commandes = aide.substr(aide.find("\nSubcommands:"));
  std::size_t nombre = 0;
  for (std::sregex_iterator i(commandes.begin(), commandes.end(), Motif), fin; i != fin; ++i, ++nombre) {
    EXPECT_NE(texte_.find("\n| `" + (*i)[1].str() + "` |"), std::string::npos) << (*i)[1];
  }
  EXPECT_GT(nombre, 10U);
}

// By the tables of the pictures: a scene's own name, or that with the name of one of its pages.
TEST_P(Manuels, EveryPictureThatItNamesCanBeTaken) {
  std::set<std::string> prises;
  for (const captures::Scene& scene : captures::Scenes()) prises.insert(scene.nom);
  for (const LigneFenetre& ligne : TableFenetres()) {
    const std::unique_ptr<QWidget> fenetre = FaitFenetre(ligne, nullptr);
    const auto* onglets = fenetre->findChild<QTabWidget*>();
    if (onglets == nullptr) continue;
    prises.erase(ligne.nom);
    for (int page = 0; page < onglets->count(); ++page) {
      const QString nom = onglets->widget(page)->objectName().section(QLatin1Char('_'), 1).toLower();
      prises.insert(ligne.nom + std::string("-") + nom.toStdString());
    }
  }
  const std::vector<std::string> images = Images(texte_);
  EXPECT_GT(images.size(), 30U);
  for (const std::string& image : images) EXPECT_TRUE(prises.contains(image)) << image;
}

TEST_P(Manuels, MessagesStandAsTheProgramWordsThem) {
  const std::string fichier = DossierSource() + "/translations/OVELIN" + GetParam() + ".trad";
  std::set<std::string> textes;
  for (std::string ligne : Lignes(DeWindows1252(LitFichierEssai(fichier)))) {
    while (!ligne.empty() && (ligne.back() == '\r' || ligne.back() == ':' || ligne.back() == ' ')) ligne.pop_back();
    if (const std::size_t egal = ligne.find('='); egal != std::string::npos) textes.insert(ligne.substr(egal + 1));
  }
  const std::vector<std::string> messages = Cases(texte_, "Message");
  EXPECT_GT(messages.size(), 30U);
  for (const std::string& message : messages) EXPECT_TRUE(textes.contains(message)) << message;
}

// The same chapters, pictures and tables in both languages.
TEST(Manuel, BothLanguagesSayTheSame) {
  const std::string fr = Manuel("fr"), en = Manuel("en");
  EXPECT_EQ(Images(fr), Images(en));
  const auto compte = [](const std::string& texte, const std::string& debut) {
    const auto lignes = Lignes(texte);
    return std::count_if(lignes.begin(), lignes.end(), [&](const std::string& l) { return l.starts_with(debut); });
  };
  for (const char* debut : {"# ", "## ", "|", "```", "1. "})
    EXPECT_EQ(compte(fr, debut), compte(en, debut)) << debut;
}

// The blanks become narrow or unbreakable ones when the manual is built; without any they would be missing.
TEST(Manuel, FrenchHasABlankBeforeItsHighMarksAndItsOwnQuotationMarks) {
  static const std::regex SansBlanc(R"([^\s:;!?.(][:;!?](?=[\s*]|$)|«\S|\S»)");
  bool code = false;
  for (const std::string& ligne : Lignes(Manuel("fr"))) {
    if (ligne.starts_with("```")) code = !code;
    if (code || ligne.starts_with("|---")) continue;
    const std::string texte = std::regex_replace(ligne, std::regex("`[^`]*`"), "x");
    EXPECT_FALSE(std::regex_search(texte, SansBlanc)) << ligne;
    EXPECT_EQ(texte.find('"'), std::string::npos) << ligne;
  }
}

}  // namespace
}  // namespace essai
