// Values that can't be read, wherever they stand: on the command line, in the settings file, in a project. None is
// replaced in silence.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/places/Lieux.h"
#include "tests/unit/app/Appel.h"

namespace {

using essai::Atelier;
using essai::Carre;
using essai::Retour;

std::string Point(const std::string& x, const std::string& y) {
  std::string ligne = x;
  ligne.resize(15, ' ');
  ligne += y;
  ligne.resize(30, ' ');
  ligne += "PD";
  ligne.resize(45, ' ');
  ligne += " A";
  ligne.resize(60, ' ');
  return ligne + "\r\n";
}

// A project whose third line is `ligne`, between points that are good.
std::string ProjetAvec(const std::string& ligne) {
  return Point("10", "10") + Point("10", "20") + ligne + "\r\n" + Point("30", "20") + Point("10", "10");
}

void AttendRefus(const Atelier& a, const std::vector<std::string>& appel, const std::string& cle,
                 const std::string& texte) {
  const Retour r = a.Appelle(appel);
  EXPECT_EQ(r.etat, 1) << appel.back() << r.erreurs;
  EXPECT_EQ(r.Json()["error"]["key"], cle) << appel.back() << r.sortie;
  EXPECT_NE(r.erreurs.find(texte), std::string::npos) << r.erreurs;
}

TEST(Set, AValueThatIsNoNumberIsRefused) {
  const Atelier a;
  const std::string dxf = a.Ecrit("c.dxf", Carre);
  for (const char* valeur : {"RayonFraise=1.5mm", "RayonFraise=", "ProfPasse=nan", "Vitesse_Mat_H=inf",
                             "TB_SAV_15=vite", "PCPoche=x", "DB1=Bois"}) {
    AttendRefus(a, {"gcode", dxf, "-o", a.Chemin("c.nc"), "--json", "--set", valeur}, "cli_valeur", valeur);
  }
  EXPECT_FALSE(std::filesystem::exists(a.Chemin("c.nc")));
}

TEST(Set, AValueBeyondWhatTheKeyCanHoldIsRefused) {
  const Atelier a;
  const std::string dxf = a.Ecrit("c.dxf", Carre);
  for (const char* valeur : {"RayonFraise=-1", "HautDeg=1e39", "DecalageOutil=4", "PCPoche=40000"}) {
    AttendRefus(a, {"plan", dxf, "--json", "--set", valeur}, "cli_limites", valeur);
  }
}

TEST(Set, AKeyThatNobodyKnowsIsRefused) {
  const Atelier a;
  const std::string dxf = a.Ecrit("c.dxf", Carre);
  for (const char* valeur :
       {"RayonFrese=1", "TB_SAV_99=1", "COMBO_SAV_15=1", "DB0=x", "DBx=1", "F_Fraisage_Haut=1"}) {
    AttendRefus(a, {"info", dxf, "--json", "--set", valeur}, "cli_cle_inconnue", valeur);
  }
}

TEST(Set, EveryKnownKindOfKeyIsTaken) {
  const Atelier a;
  const std::string dxf = a.Ecrit("c.dxf", Carre);
  for (const char* valeur : {"rayonfraise=1,5", "TB_SAV_188888=60", "cb_sav_110=1", "Option_SAV_1=1",
                             "OptionLPT=20", "MatDefaut=Bois", "DB6=Bois\t1\toutil\t-1\t-1\t2\t2\t3\t0",
                             "MRUFiles12=/x.dxf", "F_Representation_Left=12", "ConfirmSuppr=Faux"}) {
    const Retour r = a.Appelle({"info", dxf, "--set", valeur});
    EXPECT_EQ(r.etat, 0) << valeur << r.erreurs;
  }
}

TEST(KeySet, TakesTheSameAndLeavesTheFileAlone) {
  const Atelier a;
  ASSERT_EQ(a.Appelle({"key", "set", "RayonFraise", "2"}).etat, 0);
  const std::string avant = Atelier::Lit(a.Chemin("OVELIN.ini"));
  AttendRefus(a, {"key", "set", "RayonFraise", "2mm", "--json"}, "cli_valeur", "RayonFraise=2mm");
  AttendRefus(a, {"key", "set", "Rayon", "2", "--json"}, "cli_cle_inconnue", "Rayon=2");
  EXPECT_EQ(Atelier::Lit(a.Chemin("OVELIN.ini")), avant);
}

TEST(Settings, AValueOfTheFileThatCantBeReadStopsAJobWithItsLine) {
  const Atelier a;
  const std::string dxf = a.Ecrit("c.dxf", Carre);
  a.Ecrit("OVELIN.ini", "[OVELIN]\r\nTableDefaut=OVELIN\r\nRayonFraise=deux\r\n[table_OVELIN]\r\nTB_SAV_15=15\r\n");
  const Retour r = a.Appelle({"gcode", dxf, "-o", a.Chemin("c.nc"), "--json"});
  EXPECT_EQ(r.etat, 1);
  EXPECT_EQ(r.Json()["error"]["line"], 3);
  EXPECT_EQ(r.Json()["error"]["file"], a.Chemin("OVELIN.ini"));
  EXPECT_NE(r.erreurs.find("OVELIN.ini:3: RayonFraise=deux"), std::string::npos) << r.erreurs;
  // What only looks goes on, and says so. A value of the call stands before the file's.
  const Retour info = a.Appelle({"info", dxf});
  EXPECT_EQ(info.etat, 0);
  EXPECT_NE(info.erreurs.find("RayonFraise=deux"), std::string::npos);
  EXPECT_EQ(a.Appelle({"gcode", dxf, "-o", a.Chemin("c.nc"), "--set", "RayonFraise=2"}).etat, 0);
}

TEST(Settings, AFieldOfTheTableThatCantBeReadStopsAJob) {
  const Atelier a;
  const std::string dxf = a.Ecrit("c.dxf", Carre);
  a.Ecrit("OVELIN.ini", "[OVELIN]\r\nTableDefaut=Mini\r\n[table_Mini]\r\nTB_SAV_12=\r\nTB_SAV_15=vite\r\n");
  const Retour r = a.Appelle({"gcode", dxf, "-o", a.Chemin("c.nc"), "--json"});
  EXPECT_EQ(r.etat, 1);
  EXPECT_NE(r.erreurs.find("OVELIN.ini:5: TB_SAV_15=vite"), std::string::npos) << r.erreurs;
}

void AttendReglagesRefuses(const Atelier& a) {
  const std::string dxf = a.Ecrit("c.dxf", Carre);
  for (const std::vector<std::string>& appel :
       std::vector<std::vector<std::string>>{{"gcode", dxf, "-o", a.Chemin("c.nc"), "--json"},
                                             {"plan", dxf, "--json"},
                                             {"save", dxf, "-o", a.Chemin("c.OVL"), "--json"},
                                             {"key", "get", "RayonFraise", "--json"},
                                             {"key", "set", "RayonFraise", "1", "--json"},
                                             {"materials", "list", "--json"}}) {
    AttendRefus(a, appel, "lib110", "OVELIN.ini: ");
  }
  EXPECT_EQ(a.Appelle({"info", dxf}).etat, 0);
  EXPECT_FALSE(std::filesystem::exists(a.Chemin("c.nc")));
  EXPECT_FALSE(std::filesystem::exists(a.Chemin("c.OVL")));
}

TEST(Settings, AFolderInTheirPlaceStopsTheCall) {
  const Atelier a;
  std::filesystem::create_directory(a.Chemin("OVELIN.ini"));
  AttendReglagesRefuses(a);
}

TEST(Settings, APipeInTheirPlaceStopsTheCallAndHangsNothing) {
  const Atelier a;
  ASSERT_EQ(mkfifo(a.Chemin("OVELIN.ini").c_str(), 0600), 0);
  AttendReglagesRefuses(a);
}

TEST(Settings, AFileOfASizeThatNoSettingsHaveStopsTheCall) {
  const Atelier a;
  a.Ecrit("OVELIN.ini", "[OVELIN]\r\n");
  std::filesystem::resize_file(a.Chemin("OVELIN.ini"), 200'000'000);
  AttendReglagesRefuses(a);
  EXPECT_EQ(std::filesystem::file_size(a.Chemin("OVELIN.ini")), 200'000'000U);
}

TEST(Settings, TwoProcessesThatWriteThemLoseNoKey) {
  const Atelier a;  // there is no file yet: they make it at the same time, too
  const std::string script =
      a.Ecrit("deux.sh",
              "serie() { for i in $(seq $1 $2); do \"$CLI\" --config \"$DOSSIER\" key set MRUFiles$i $3 "
              ">/dev/null || exit 1; done; }\n"
              "serie 1 60 un & p=$!\nserie 61 120 deux && wait $p\n");
  const std::string commande =
      "CLI='" + essai::DossierProgrammes() + "/ovelin-cli' DOSSIER='" + a.Chemin("") + "' bash '" + script + "'";
  ASSERT_EQ(std::system(commande.c_str()), 0);
  const std::string ini = Atelier::Lit(a.Chemin("OVELIN.ini"));
  for (int i = 1; i <= 120; ++i) {
    const std::string ligne = "\nMRUFiles" + std::to_string(i) + "=" + (i <= 60 ? "un" : "deux") + "\r\n";
    EXPECT_NE(ini.find(ligne), std::string::npos) << i;
  }
  EXPECT_NE(ini.find("\nDB5="), std::string::npos);
}

TEST(Project, AValueOfALineThatCantBeReadIsToldWithItsLine) {
  const Atelier a;
  struct Cas {
    std::string ligne, dit;
  };
  const std::vector<Cas> cas{{Point("nan", "20"), "X=nan"},
                             {Point("20", "inf"), "Y=inf"},
                             {Point("20", "1e9"), "Y=1e9"},
                             {Point("12abc", "20"), "X=12abc"},
                             {Point("20", ""), "Y="},
                             {"", "X="},
                             {"$$Seq A001profond", "Profondeur=profond"},
                             {"$$Mat01large", "LargeurEncoche=large"},
                             {"$$RayonFraise=1.5mm", "RayonFraise=1.5mm"},
                             {"$$HautDeg=nan", "HautDeg=nan"}};
  for (const Cas& c : cas) {
    std::string ligne = c.ligne;
    if (ligne.ends_with("\r\n")) ligne.resize(ligne.size() - 2);
    const std::string projet = a.Ecrit("p.OVL", ProjetAvec(ligne));
    for (const std::vector<std::string>& appel :
         std::vector<std::vector<std::string>>{{"gcode", projet, "-o", a.Chemin("p.nc"), "--json"},
                                               {"save", projet, "-o", a.Chemin("q.OVL"), "--json"}}) {
      const Retour r = a.Appelle(appel);
      EXPECT_EQ(r.etat, 1) << c.dit;
      EXPECT_EQ(r.Json()["error"]["line"], 3) << c.dit << r.sortie;
      EXPECT_NE(r.erreurs.find("p.OVL:3: " + c.dit), std::string::npos) << r.erreurs;
    }
    const Retour info = a.Appelle({"info", projet});
    EXPECT_EQ(info.etat, 0) << info.erreurs;
    EXPECT_NE(info.erreurs.find(c.dit), std::string::npos) << info.erreurs;
  }
  EXPECT_FALSE(std::filesystem::exists(a.Chemin("p.nc")));
  EXPECT_FALSE(std::filesystem::exists(a.Chemin("q.OVL")));
}

TEST(Project, AFileThatIsNoneIsRefusedWhateverItsName) {
  const Atelier a;
  const std::vector<std::string> contenus{"Bonjour\r\nle monde\r\n",
                                          std::string("\x7f"
                                                      "ELF\0\0\0",
                                                      7),
                                          ProjetAvec(std::string("\x01", 1))};
  for (const std::string& contenu : contenus) {
    const Retour r = a.Appelle({"info", a.Ecrit("x.OVL", contenu), "--json"});
    EXPECT_EQ(r.etat, 1);
    EXPECT_EQ(r.Json()["error"]["key"], "PasProjet") << r.sortie;
    EXPECT_EQ(r.Json()["error"]["file"], a.Chemin("x.OVL"));
  }
}

TEST(Edit, AnArgumentThatDoesNothingIsRefused) {
  const Atelier a;
  const std::string dxf = a.Ecrit("c.dxf", Carre);
  for (const char* operation :
       {R"({"op":"BasculeSelection","code":"zz"})", R"({"op":"InverseSequence","code":"zz"})",
        R"({"op":"EcritSequence","code":"zz","profondeur":-1})", R"({"op":"CalculDecalage","code":"zz"})",
        R"({"op":"DeplaceSelection","direction":2,"distance":5})",
        R"({"op":"EchelleSelection","facteurX":0,"facteurY":1})",
        R"({"op":"TB_Profondeur","valeur":-1,"valeurs":-2})", R"({"op":"TB_RayonFraise","valeur":"1.5mm"})",
        R"({"op":"DeplaceSelection","direction":1,"distance":1e300})"}) {
    const std::string operations = a.Ecrit("ops.json", "[" + std::string(operation) + "]");
    const Retour r = a.Appelle({"edit", dxf, "--do", operations, "-o", a.Chemin("c.OVL"), "--json"});
    EXPECT_EQ(r.etat, 1) << operation;
    EXPECT_EQ(r.Json()["error"]["key"], "cli_edit") << operation << r.sortie;
    EXPECT_FALSE(std::filesystem::exists(a.Chemin("c.OVL"))) << operation;
  }
}

TEST(Edit, AnOperationOnTheSelectionNeedsOne) {
  const Atelier a;
  const std::string dxf = a.Ecrit("c.dxf", Carre);
  for (const char* operation : {R"({"op":"TourneSelection","angle":1})", R"({"op":"SupprimeSelection"})",
                                R"({"op":"CB_Poche","valeur":true})"}) {
    const std::string operations =
        a.Ecrit("ops.json", R"([{"op":"DeselectionneTout"},)" + std::string(operation) + "]");
    const Retour r = a.Appelle({"edit", dxf, "--do", operations, "-o", a.Chemin("c.OVL"), "--json"});
    EXPECT_EQ(r.etat, 1) << operation;
    EXPECT_EQ(r.Json()["error"]["line"], 2) << r.sortie;
  }
}

TEST(Material, ARowThatCantBeReadStopsAJobWithItsLine) {
  const Atelier a;
  const std::string dxf = a.Ecrit("c.dxf", Carre);
  a.Ecrit("OVELIN.ini",
          "[OVELIN]\r\nDB1=Bois&&1&&A&&-3&&-1&&2&&2&&5&&0\r\nDB2=Or&&0.8x&&A&&-3&&-1&&2&&2&&5&&0\r\n");
  EXPECT_EQ(a.Appelle({"gcode", dxf, "-o", a.Chemin("b.nc"), "--material", "Bois"}).etat, 0);
  const Retour r = a.Appelle({"gcode", dxf, "-o", a.Chemin("c.nc"), "--material", "Or", "--json"});
  EXPECT_EQ(r.etat, 1);
  EXPECT_EQ(r.Json()["error"]["file"], a.Chemin("OVELIN.ini"));
  EXPECT_EQ(r.Json()["error"]["line"], 3);
  EXPECT_NE(r.erreurs.find("OVELIN.ini:3: DB2=Or\t0.8x"), std::string::npos) << r.erreurs;
  EXPECT_FALSE(std::filesystem::exists(a.Chemin("c.nc")));
  const std::string operations = a.Ecrit("o.json", R"([{"op":"CB_BD","materiau":"Or"}])");
  const Retour e = a.Appelle({"edit", dxf, "--do", operations, "-o", a.Chemin("e.OVL")});
  EXPECT_EQ(e.etat, 1);
  EXPECT_NE(e.erreurs.find("DB2=Or"), std::string::npos) << e.erreurs;
}

TEST(Material, AnUnknownOneNamesTheFileThatWasLookedAt) {
  const Atelier a;
  const std::string dxf = a.Ecrit("c.dxf", Carre);
  const std::string ini = a.Chemin("OVELIN.ini");
  AttendRefus(a, {"gcode", dxf, "-o", a.Chemin("c.nc"), "--material", "Nix", "--json"}, "cli_materiau",
              "Nix (" + ini);
  AttendRefus(a, {"materials", "delete", "Nix", "--json"}, "cli_materiau", "Nix (" + ini);
  AttendRefus(a, {"info", dxf, "--table", "Nix", "--json"}, "cli_table", "Nix (" + ini);
  AttendRefus(a, {"tables", "show", "Nix", "--json"}, "cli_table", "Nix (" + ini);
  EXPECT_EQ(a.Appelle({"info", dxf, "--table", "Nix", "--json"}).Json()["error"]["file"], ini);
}

TEST(Edit, AClearanceBelowZeroIsRefusedAsInTheField) {
  const Atelier a;
  const std::string dxf = a.Ecrit("c.dxf", Carre);
  const std::string operations = a.Ecrit("o.json", R"([{"op":"TB_HautDeg","valeur":"-1"}])");
  EXPECT_EQ(a.Appelle({"edit", dxf, "--do", operations, "-o", a.Chemin("e.OVL")}).etat, 1);
  EXPECT_FALSE(std::filesystem::exists(a.Chemin("e.OVL")));
}

}  // namespace
