// What the documents name is there: files in backquotes, and what links lead to.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "tests/places/Lieux.h"

namespace {

namespace fs = std::filesystem;

const fs::path Racine = essai::DossierSource();

// What lies in the tree; what is built or hidden is none of it, and the manual's pictures have a test of their own,
// for they are made when it is built.
struct Contenu {
  std::vector<fs::path> documents;
  std::set<std::string> noms;  // of all files
};
Contenu LitArbre() {
  Contenu contenu;
  for (auto i = fs::recursive_directory_iterator(Racine), fin = fs::recursive_directory_iterator(); i != fin; ++i) {
    const std::string nom = i->path().filename().string();
    const bool manuel = i->path().parent_path() == Racine / "docs" / "manual";
    if (i->is_directory() && (nom.starts_with('.') || nom == "build" || manuel)) i.disable_recursion_pending();
    if (!i->is_regular_file()) continue;
    contenu.noms.insert(nom);
    if (nom.ends_with(".md")) contenu.documents.push_back(i->path());
  }
  return contenu;
}

std::vector<std::string> Trouve(const std::string& texte, const std::regex& motif) {
  std::vector<std::string> trouves;
  for (std::sregex_iterator i(texte.begin(), texte.end(), motif), fin; i != fin; ++i) trouves.push_back((*i)[1]);
  return trouves;
}

// A path with a slash and an extension, alone in its backquotes. Patterns ("Page*.h", "<x>") are none.
std::vector<std::string> Fichiers(const std::string& texte) {
  static const std::regex Motif(R"(`((?:[\w.-]+/)+[\w.-]*\w\.\w+)`)");
  return Trouve(texte, Motif);
}

// A source or a document by its name alone, without the folder. X stands for any name.
std::vector<std::string> NomsSeuls(const std::string& texte) {
  static const std::regex Motif(R"(`((?!(?:test_)?X\.)[\w-]+\.(?:cpp|h|def|md))`)");
  return Trouve(texte, Motif);
}

// What a folder's document sends its reader to first.
std::vector<std::string> AOuvrir(const std::string& texte) {
  static const std::regex Motif(R"(Open first: `([^`]+)`)");
  return Trouve(texte, Motif);
}

std::vector<std::string> Liens(const std::string& texte) {
  static const std::regex Motif(R"(\]\(([\w./-]+)\))");
  return Trouve(texte, Motif);
}

// From the root, or from where the document lies.
bool EstLa(const fs::path& document, const std::string& chemin) {
  return fs::exists(Racine / chemin) || fs::exists(document.parent_path() / chemin);
}

std::string Texte(const fs::path& document) {
  std::ifstream f(document);
  return {std::istreambuf_iterator<char>(f), {}};
}

TEST(Documents, PathsAreToldFromOtherWordsInBackquotes) {
  EXPECT_EQ(
      Fichiers("`core/Cles.h` or `../a-b/c.d.cpp`, not `core/`, `Cles.h`, `x/Page*.h`, `a/<x>/y.h`, `dev/fuzz`"),
      (std::vector<std::string>{"core/Cles.h", "../a-b/c.d.cpp"}));
  EXPECT_EQ(Liens("[a](docs/cli.md), ![b](docs/images/c.png), [d](https://example.org)"),
            (std::vector<std::string>{"docs/cli.md", "docs/images/c.png"}));
}

TEST(Documents, NamesWithoutAFolderAreThoseOfSourcesAndDocuments) {
  EXPECT_EQ(
      NomsSeuls("`Cles.h`, `a-b.md` and `F_X.cpp`, not `core/Cles.h`, `X.cpp`, `test_X.cpp`, `job.nc`, Cles.h"),
      (std::vector<std::string>{"Cles.h", "a-b.md", "F_X.cpp"}));
  EXPECT_EQ(AOuvrir("Open first: `Cles.h`, then `Etat.h`."), std::vector<std::string>{"Cles.h"});
}

TEST(Documents, NameOnlyFilesThatAreThere) {
  std::size_t nommes = 0;
  for (const fs::path& document : LitArbre().documents) {
    const std::string texte = Texte(document);
    std::vector<std::string> chemins = Fichiers(texte);
    const std::vector<std::string> liens = Liens(texte);
    chemins.insert(chemins.end(), liens.begin(), liens.end());
    for (const std::string& chemin : chemins) EXPECT_TRUE(EstLa(document, chemin)) << document << ": " << chemin;
    nommes += chemins.size();
  }
  EXPECT_GT(nommes, 100U);
}

// Also a name without its folder is that of a file, and the one that is to be opened first lies beside.
TEST(Documents, NameNoSourceThatIsNowhere) {
  const Contenu contenu = LitArbre();
  std::size_t nommes = 0, ouverts = 0;
  for (const fs::path& document : contenu.documents) {
    const std::string texte = Texte(document);
    for (const std::string& nom : NomsSeuls(texte)) {
      EXPECT_TRUE(contenu.noms.contains(nom)) << document << ": " << nom;
      ++nommes;
    }
    for (const std::string& premier : AOuvrir(texte)) {
      EXPECT_TRUE(EstLa(document, premier)) << document << ": " << premier;
      ++ouverts;
    }
  }
  EXPECT_GT(nommes, 100U);
  EXPECT_GT(ouverts, 20U);
}

}  // namespace
