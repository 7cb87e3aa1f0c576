// The translation files: the same keys, texts that fit, and every text of the table of names.
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include "core/Texte8.h"
#include "core/Textes.h"
#include "tests/places/Lieux.h"

namespace {

namespace fs = std::filesystem;
using Cles = std::map<std::string, std::string>;  // "section/key" -> text, bytes of the file

std::string Lit(const fs::path& chemin) {
  std::ifstream f(chemin, std::ios::binary);
  std::ostringstream s;
  s << f.rdbuf();
  return s.str();
}

Cles LitTraduction(const std::string& langue) {
  Cles cles;
  std::istringstream texte(Lit(fs::path(essai::DossierSource()) / "translations" / ("OVELIN" + langue + ".trad")));
  std::string ligne;
  std::string section;
  while (std::getline(texte, ligne)) {
    if (!ligne.empty() && ligne.back() == '\r') ligne.pop_back();
    if (ligne.starts_with('[')) section = ligne.substr(1, ligne.find(']') - 1);
    const std::size_t egal = ligne.find('=');
    if (egal == std::string::npos) continue;
    const bool nouvelle = cles.emplace(section + "/" + ligne.substr(0, egal), ligne.substr(egal + 1)).second;
    EXPECT_TRUE(nouvelle) << langue << ": twice " << section << "/" << ligne;
  }
  return cles;
}

constexpr std::array<const char*, 7> Langues{"fr", "en", "de", "es", "ca", "it", "pt"};

// What a translation must keep of the text: the marks of values that are put in, and the line breaks.
std::multiset<std::string> Marques(const std::string& texte) {
  static const std::regex Marque(R"(%[0-9a-zA-Z]|\{[^}]*\}|\\[nt]|<br/?>|&&)");
  std::multiset<std::string> marques;
  for (std::sregex_iterator i(texte.begin(), texte.end(), Marque), fin; i != fin; ++i) marques.insert(i->str());
  return marques;
}

TEST(Translations, AllSevenHoldTheSameKeys) {
  const Cles fr = LitTraduction("fr");
  EXPECT_GT(fr.size(), 50U);
  for (const char* langue : Langues) {
    const Cles autre = LitTraduction(langue);
    for (const auto& [cle, texte] : fr) EXPECT_TRUE(autre.contains(cle)) << langue << " lacks " << cle;
    for (const auto& [cle, texte] : autre) EXPECT_TRUE(fr.contains(cle)) << "fr lacks " << cle << " of " << langue;
  }
}

TEST(Translations, TextsAreNeitherEmptyNorCutOnReading) {
  for (const char* langue : Langues) {
    for (const auto& [cle, texte] : LitTraduction(langue)) {
      EXPECT_FALSE(texte.empty()) << langue << " " << cle;
      EXPECT_LE(texte.size(), 255U) << langue << " " << cle;
    }
  }
}

TEST(Translations, KeepThePlacesOfValuesAndTheLineBreaks) {
  EXPECT_EQ(Marques("a %1 of {x}\\n"), (std::multiset<std::string>{"%1", "{x}", "\\n"}));
  const Cles fr = LitTraduction("fr");
  for (const char* langue : Langues) {
    for (const auto& [cle, texte] : LitTraduction(langue)) {
      const auto francais = fr.find(cle);
      if (francais == fr.end()) continue;
      EXPECT_EQ(Marques(texte), Marques(francais->second)) << langue << " " << cle;
    }
  }
}

// In a file of 8-bit text a byte above 127 is a letter of Windows-1252; five bytes are none, and a sequence that
// reads as UTF-8 would be taken for it.
TEST(Translations, EveryByteIsALetterOfWindows1252) {
  const std::set<unsigned char> aucune{0x81, 0x8D, 0x8F, 0x90, 0x9D};
  for (const char* langue : Langues) {
    for (const auto& [cle, texte] : LitTraduction(langue)) {
      for (std::size_t i = 0; i < texte.size(); ++i) {
        const auto octet = static_cast<unsigned char>(texte[i]);
        EXPECT_FALSE(aucune.contains(octet)) << langue << " " << cle;
        EXPECT_GE(octet, 0x20) << langue << " " << cle;
        const bool suite = i + 1 < texte.size() && (static_cast<unsigned char>(texte[i + 1]) & 0xC0U) == 0x80U;
        EXPECT_FALSE(octet >= 0xC2 && octet < 0xF5 && suite) << langue << " " << cle << " holds UTF-8";
      }
    }
  }
}

// A letter behind "&" is the key of its control; two "&" in a text are one too many.
TEST(Translations, ATextHasAtMostOneKeyLetter) {
  for (const char* langue : Langues) {
    for (const auto& [cle, texte] : LitTraduction(langue)) {
      std::size_t lettres = 0;
      for (std::size_t i = 0; i + 1 < texte.size(); ++i) {
        if (texte[i] != '&') continue;
        if (texte[i + 1] == '&') {
          ++i;
        } else if (texte[i + 1] != ' ') {
          ++lettres;
        }
      }
      EXPECT_LE(lettres, 1U) << langue << " " << cle;
    }
  }
}

TEST(Translations, CommentsOfGCodeHoldNoParenthesis) {
  for (const char* langue : Langues) {
    for (const auto& [cle, texte] : LitTraduction(langue)) {
      if (!cle.starts_with("F_Fraisage/lib")) continue;
      EXPECT_EQ(texte.find_first_of("()"), std::string::npos) << langue << " " << cle << " " << texte;
    }
  }
}

std::string Place(const ovelin::CleTexte& texte) {
  return std::string(texte.Section()) + "/" + std::string(texte.Cle());
}

TEST(Translations, EveryNamedTextIsThere) {
  const Cles fr = LitTraduction("fr");
  for (const auto& [nom, texte] : ovelin::Textes::Tous) EXPECT_TRUE(fr.contains(Place(texte))) << nom;
}

TEST(Translations, NoTwoNamesStandForOneKey) {
  std::map<std::string, std::string> noms;
  for (const auto& [nom, texte] : ovelin::Textes::Tous) {
    const auto [place, neuve] = noms.emplace(Place(texte), nom);
    EXPECT_TRUE(neuve) << nom << " and " << place->second;
  }
}

TEST(Translations, TheFrenchOfAWindowIsThatOfItsTranslation) {
  const Cles fr = LitTraduction("fr");
  int francais = 0;
  for (const auto& [nom, texte] : ovelin::Textes::Tous) {
    if (texte.Francais().empty()) continue;
    ++francais;
    const auto traduit = fr.find(Place(texte));
    if (traduit == fr.end()) continue;
    EXPECT_EQ(ovelin::DeTexte8(traduit->second), texte.Francais()) << nom;
  }
  EXPECT_GT(francais, 40);
}

// A question says on its buttons what they do; "Oui" and "OK" say it nowhere but in the words above them. Where the
// buttons are chosen in a statement of their own the reader of the change looks.
TEST(Translations, AQuestionHasVerbsOnItsButtons) {
  static const std::regex Question(R"((?:Message|BoiteDe|BoiteLignesRefusees|Question)\(\s*Textes::(\w+)[^;]*;)");
  const Cles fr = LitTraduction("fr");
  std::set<std::string> vues;
  for (const char* dossier :
       {"controller", "core", "database", "gcode", "machine", "manual", "run", "toolpath", "workspace"}) {
    for (const auto& fichier : fs::recursive_directory_iterator(fs::path(essai::DossierSource()) / dossier)) {
      if (fichier.path().extension() != ".cpp") continue;
      const std::string source = Lit(fichier.path());
      for (std::sregex_iterator i(source.begin(), source.end(), Question), fin; i != fin; ++i) {
        const std::string instruction = i->str();
        const bool ouiNon = instruction.find("Boutons::OuiNon") != std::string::npos;
        const bool annuler =
            instruction.find("Boutons::OkAnnuler") != std::string::npos || instruction.starts_with("Question");
        if (ouiNon || annuler) vues.insert((*i)[1].str() + (ouiNon ? "/_Oui" : "/_OK"));
      }
    }
  }
  EXPECT_GT(vues.size(), 15U);
  for (const std::string& vue : vues) {
    const std::string nom = vue.substr(0, vue.find('/'));
    for (const auto& [texte, cle] : ovelin::Textes::Tous) {
      if (texte != nom) continue;
      EXPECT_TRUE(fr.contains(Place(cle) + vue.substr(vue.find('/') + 1))) << nom;
    }
  }
}

// Texts without a control have keys of "lib" and a number, and bare numbers in "erreurs".
TEST(Translations, EveryFreeTextHasAName) {
  static const std::regex Libre(R"(\w+/[Ll]ib\d.*|erreurs/.*)");
  std::set<std::string> nommees;
  for (const auto& [nom, texte] : ovelin::Textes::Tous) nommees.insert(Place(texte));
  for (const auto& [cle, texte] : LitTraduction("fr")) {
    if (!std::regex_match(cle, Libre)) continue;
    // The answers of a box carry the key of the box.
    static const std::regex Reponse("_(Oui|Non|OK|Annuler)$");
    if (std::regex_search(cle, Reponse)) {
      EXPECT_TRUE(nommees.contains(std::regex_replace(cle, Reponse, ""))) << cle;
      continue;
    }
    EXPECT_TRUE(nommees.contains(cle)) << cle;
  }
}

}  // namespace
