// Which files may touch the document, settings, machine table and plan in force. All others are kernels or helpers
// over values: the headers that declare the instances are the only way to their names, so the includes are the
// proof.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "tests/places/Lieux.h"

namespace {

namespace fs = std::filesystem;

// Header of the instance -> what it declares.
const std::map<std::string, std::string> Instances{{"core/DocumentCourant.h", "Document Doc"},
                                                   {"core/ReglagesCourants.h", "Reglages Regl"},
                                                   {"core/PlanCourant.h", "EtatPlan Plan"},
                                                   {"core/RunCourant.h", "EtatRun Marche"},
                                                   {"machine/TableCourante.h", "TableMachine Table"}};

// The shells below the windows, by folder. A new one belongs here only if it is a procedure that puts values in
// force; what computes takes values and stays out.
const std::map<std::string, std::set<std::string>> Coquilles{
    {"controller",
     {"ChangtTable.cpp", "ChoixCarte.cpp", "ClsCdeZENIK.cpp", "EtatZENIK.cpp", "Module_ZENIK.cpp",
      "MouvementsZENIK.cpp", "TablesCarte.cpp", "TravailZENIK.cpp"}},
    {"core",
     {"Aide.cpp", "Cles.cpp", "DocumentCourant.cpp", "FichierDefaut.cpp", "PlanCourant.cpp", "Projet.cpp",
      "ReglagesCourants.cpp", "RunCourant.cpp", "Traduction.cpp", "ValeursCles.cpp"}},
    {"database", {"Module_BD.cpp"}},
    {"gcode", {"Module_FraisageGcode.cpp", "Module_Gcode.cpp"}},
    {"machine", {"ChampsTable.cpp", "GestionTables.cpp", "Module_Table.cpp"}},
    {"machine/essais",
     {"Module_EssaiVitesse.cpp", "Module_ParamMachine.cpp", "Module_PasPerdus.cpp", "PendantEssai.cpp",
      "TableOuverte.cpp"}},
    {"manual", {"Module_Origine.cpp", "Module_PilMan.cpp", "Module_PlaceMan.cpp"}},
    {"run",
     {"Alimentation.cpp", "AvisPlan.cpp", "Module_Decoupe.cpp", "Module_Dialecte.cpp", "Module_Fraisage.cpp",
      "Module_GCode.cpp", "Module_Lancement.cpp", "Module_Planificateur.cpp", "Module_Profil.cpp"}},
    {"toolpath",
     {"Attaches.cpp", "CalculDecalage.cpp", "ChampsOutil.cpp", "FichesSequence.cpp", "Module_Copie.cpp",
      "Module_Export.cpp", "Module_Nettoyage.cpp", "Module_Ordre.cpp", "Module_Texte.cpp", "Module_Transforme.cpp",
      "Module_Vinyl.cpp", "PasseTraces.cpp", "PointsSequence.cpp", "ProprietesSelection.cpp", "Recherche.cpp"}},
    {"workspace",
     {"FinCycle.cpp", "Module_Annulation.cpp", "Module_Arbres.cpp", "Module_Cycle.cpp", "Module_Dimension.cpp",
      "Module_Enregistrement.cpp", "Module_Image.cpp", "Module_Ouverture.cpp", "Module_Panneau.cpp",
      "Module_Prise.cpp", "Module_PanneauChamps.cpp", "Module_Recents.cpp", "Module_Reprise.cpp",
      "Module_Souris.cpp", "Module_Travail.cpp", "Module_Vue.cpp", "RetourOuverture.cpp"}}};

std::string Relatif(const fs::path& chemin) {
  return fs::relative(chemin, fs::path(essai::DossierSource())).generic_string();
}

std::vector<std::string> Sources() {
  std::vector<std::string> fichiers;
  for (const char* dossier : {"app", "base", "closed", "controller", "core", "database", "gcode", "image",
                              "machine", "manual", "run", "toolpath", "workspace"}) {
    const fs::path racine = fs::path(essai::DossierSource()) / dossier;
    if (!fs::exists(racine)) continue;
    for (const auto& entree : fs::recursive_directory_iterator(racine)) {
      const std::string extension = entree.path().extension().string();
      if (extension == ".h" || extension == ".cpp") fichiers.push_back(Relatif(entree.path()));
    }
  }
  return fichiers;
}

std::string Texte(const std::string& fichier) {
  std::ifstream f(fs::path(essai::DossierSource()) / fichier);
  return {std::istreambuf_iterator<char>(f), {}};
}

std::set<std::string> Inclus(const std::string& fichier) {
  static const std::regex Motif(R"(#\s*include\s*"([^"]+)\")");
  const std::string texte = Texte(fichier);
  std::set<std::string> inclus;
  for (std::sregex_iterator i(texte.begin(), texte.end(), Motif), fin; i != fin; ++i) inclus.insert((*i)[1]);
  return inclus;
}

bool TouchesAnInstance(const std::string& fichier) {
  for (const std::string& inclus : Inclus(fichier)) {
    if (Instances.contains(inclus)) return true;
  }
  return false;
}

// Windows and the two programs show what is in force; they are shells by what they are.
bool EstFenetreOuProgramme(const std::string& fichier) {
  return fichier.starts_with("app/") || fichier.find("/ui/") != std::string::npos;
}

bool EstCoquille(const std::string& fichier) {
  const std::size_t barre = fichier.rfind('/');
  const auto dossier = Coquilles.find(fichier.substr(0, barre));
  return dossier != Coquilles.end() && dossier->second.contains(fichier.substr(barre + 1));
}

TEST(Shells, AloneIncludeWhatIsInForce) {
  int coquilles = 0;
  for (const std::string& fichier : Sources()) {
    if (EstFenetreOuProgramme(fichier) || !TouchesAnInstance(fichier)) continue;
    ++coquilles;
    EXPECT_TRUE(EstCoquille(fichier)) << fichier << " is no shell: it takes values";
  }
  EXPECT_GT(coquilles, 10);
}

TEST(Shells, AreStillThere) {
  for (const auto& [dossier, fichiers] : Coquilles) {
    for (const std::string& fichier : fichiers) {
      EXPECT_TRUE(TouchesAnInstance(dossier + "/" + fichier))
          << dossier << "/" << fichier << " is no shell any more";
    }
  }
}

// Through a header an instance would reach files that never asked for it.
TEST(Shells, AreSourcesAndNeverHeaders) {
  for (const std::string& fichier : Sources()) {
    if (!fichier.ends_with(".h")) continue;
    EXPECT_FALSE(TouchesAnInstance(fichier)) << fichier;
  }
}

// What the kernels of the road from a drawing to its G-code can reach: their headers, the sources of these, and so
// on. The outside world (Services.h) is the one seam they share with the shells.
std::set<std::string> AtteintDepuis(const std::string& depart) {
  std::set<std::string> vus{"core/Services.h"};
  std::vector<std::string> attente{depart};
  while (!attente.empty()) {
    const std::string fichier = attente.back();
    attente.pop_back();
    if (!fs::exists(fs::path(essai::DossierSource()) / fichier) || !vus.insert(fichier).second) continue;
    for (const std::string& inclus : Inclus(fichier)) attente.push_back(inclus);
    if (fichier.ends_with(".h")) attente.push_back(fichier.substr(0, fichier.size() - 2) + ".cpp");
  }
  return vus;
}

TEST(Kernels, OfTheRoadReachNothingThatIsInForce) {
  const std::set<std::string> atteints = AtteintDepuis("tests/unit/workspace/Route.cpp");
  EXPECT_TRUE(atteints.contains("toolpath/traces/NoyauTrace.cpp"));
  EXPECT_TRUE(atteints.contains("run/NoyauNC.cpp"));
  for (const std::string& fichier : atteints) EXPECT_FALSE(Instances.contains(fichier)) << fichier;
}

// Nobody gets round the include by a declaration of his own.
TEST(Shells, EachInstanceIsDeclaredByItsHeaderAlone) {
  for (const auto& [entete, instance] : Instances) {
    const std::string declaration = "extern " + instance + ";";
    EXPECT_NE(Texte(entete).find(declaration), std::string::npos) << entete;
    for (const std::string& fichier : Sources()) {
      if (fichier == entete) continue;
      EXPECT_EQ(Texte(fichier).find(declaration), std::string::npos) << fichier;
    }
  }
}

}  // namespace
