// What the documents name is there: files in backquotes, and what links lead to.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

#include "tests/places/Lieux.h"

namespace {

namespace fs = std::filesystem;

const fs::path Racine = essai::DossierSource();

// Every document of the tree; what is built or hidden is none, and the manual's pictures have a test of their own,
// for they are made when it is built.
std::vector<fs::path> Documents() {
  std::vector<fs::path> documents;
  for (auto i = fs::recursive_directory_iterator(Racine), fin = fs::recursive_directory_iterator(); i != fin; ++i) {
    const std::string nom = i->path().filename().string();
    const bool manuel = i->path().parent_path() == Racine / "docs" / "manual";
    if (i->is_directory() && (nom.starts_with('.') || nom == "build" || manuel)) i.disable_recursion_pending();
    if (i->is_regular_file() && nom.ends_with(".md")) documents.push_back(i->path());
  }
  return documents;
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

TEST(Documents, NameOnlyFilesThatAreThere) {
  std::size_t nommes = 0;
  for (const fs::path& document : Documents()) {
    const std::string texte = Texte(document);
    std::vector<std::string> chemins = Fichiers(texte);
    const std::vector<std::string> liens = Liens(texte);
    chemins.insert(chemins.end(), liens.begin(), liens.end());
    for (const std::string& chemin : chemins) EXPECT_TRUE(EstLa(document, chemin)) << document << ": " << chemin;
    nommes += chemins.size();
  }
  EXPECT_GT(nommes, 100U);
}

}  // namespace
