#include "tests/support/Support.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Dossiers.h"
#include "core/Etat.h"
#include "core/Fichiers.h"
#include "core/Traduction.h"
#include "tests/places/Lieux.h"
#include "tests/support/DossierEssai.h"

namespace essai {

using namespace ovelin;

namespace {

struct BoiteAttendue {
  std::string section, cle, texte;
  Reponse reponse;
};
struct Scenario {
  std::deque<BoiteAttendue> boites;
  std::deque<std::pair<std::string, std::string>> fichiers, saisies;
  std::deque<std::pair<std::string, std::optional<int>>> fenetres;
  std::deque<std::pair<std::string, IssueBureau>> bureau;
  VuMachine vu;
  std::vector<BoiteMessage> montrees;
  std::vector<std::pair<int, std::string>> panneaux;
  int bips = 0;
  std::unique_ptr<DossierEssai> dossier;  // made when a test asks for it
};
Scenario Sc;

std::string Nom(const BoiteMessage& b) {
  return b.cle.empty() ? "\"" + b.texte + "\"" : b.section + "/" + b.cle + " \"" + b.texte + "\"";
}

Reponse Montre(const BoiteMessage& boite) {
  Sc.montrees.push_back(boite);
  if (Sc.boites.empty()) {
    ADD_FAILURE() << "unexpected box " << Nom(boite);
    return Reponse::Annuler;
  }
  const BoiteAttendue attendue = Sc.boites.front();
  Sc.boites.pop_front();
  const bool bonne = attendue.cle.empty() ? boite.texte == attendue.texte
                                          : boite.section == attendue.section && boite.cle == attendue.cle;
  if (!bonne) {
    ADD_FAILURE() << "box " << Nom(boite) << ", expected " << attendue.section << "/" << attendue.cle
                  << attendue.texte;
  }
  return attendue.reponse;
}

// The answer of the next one in the script, or `sinon` where it is another one.
template <class T>
T Suivante(std::deque<std::pair<std::string, T>>& file, std::string_view cle, const char* genre, T sinon) {
  if (file.empty() || file.front().first != cle) {
    ADD_FAILURE() << "unexpected " << genre << ' ' << cle;
    return sinon;
  }
  T reponse = file.front().second;
  file.pop_front();
  return reponse;
}

void EcouteMachine() {
  Svc.RetientVeille = [](bool retenue) { Sc.vu.veilles.push_back(retenue); };
  Svc.MontreStop = [](bool visible) { Sc.vu.stops.push_back(visible); };
  Svc.MontreRun = [](bool enCours) { Sc.vu.runs.push_back(enCours); };
  Svc.MarquePosition = [](double x, double y) { Sc.vu.marques.push_back({x, y}); };
  Svc.MontrePosition = [](double x, double y, double z) { Sc.vu.positions.push_back({x, y, z}); };
  Svc.LigneRun = [](float x0, float y0, float x1, float y1) { Sc.vu.lignes.push_back({x0, y0, x1, y1}); };
  Svc.EffaceLigneRun = [] { Sc.vu.lignes.clear(); };
  Svc.Battement = [](const std::function<void()>& pas) { Sc.vu.battement = pas; };
  Svc.Timer_Interro = [](bool actif) { Sc.vu.interro.push_back(actif); };
  Svc.Pilotage = [](DemandePilotage demande) { Sc.vu.pilotage.push_back(demande); };
}

class Ecouteur : public testing::EmptyTestEventListener {
  void OnTestStart(const testing::TestInfo&) override {
    Sc = Scenario{};
    RemetTout();
    OublieCles();
    OublieTraductions();
    DossierProgramme = Dossier();
    DossierTemp = Dossier() + "/temp";
    std::filesystem::create_directories(DossierTemp);
    DossiersProduit = {DossierSource() + "/translations", DossierSource() + "/samples"};
    Svc.Montre = Montre;
    Svc.ChoisitFichier = [](const DialogueFichier& d) {
      return Suivante<std::string>(Sc.fichiers, d.cle, "file dialog", "");
    };
    Svc.Saisit = [](CleTexte cle, const std::string&, const std::string&) {
      return Suivante<std::string>(Sc.saisies, cle.Cle(), "prompt", "");
    };
    Svc.OuvreFenetre = [](const std::string& nom) {
      return Suivante<std::optional<int>>(Sc.fenetres, nom, "window", std::nullopt);
    };
    Svc.OuvreParBureau = [](const std::string& cible) {
      return Suivante(Sc.bureau, cible, "opening by the desktop", IssueBureau::SansAssociation);
    };
    EcouteMachine();
    Svc.Bip = [] { ++Sc.bips; };
    Svc.Panneau = [](PanneauEtat panneau, const std::string& texte) {
      Sc.panneaux.emplace_back(static_cast<int>(panneau), texte);
    };
  }
  void OnTestEnd(const testing::TestInfo&) override {
    for (const auto& b : Sc.boites) ADD_FAILURE() << "box never shown: " << b.section << "/" << b.cle << b.texte;
    for (const auto& f : Sc.fichiers) ADD_FAILURE() << "file dialog never shown: " << f.first;
    for (const auto& s : Sc.saisies) ADD_FAILURE() << "prompt never shown: " << s.first;
    for (const auto& f : Sc.fenetres) ADD_FAILURE() << "window never opened: " << f.first;
    for (const auto& b : Sc.bureau) ADD_FAILURE() << "never opened by the desktop: " << b.first;
    Sc.dossier.reset();
  }
};

}  // namespace

void Attend(const std::string& section, const std::string& cle, Reponse reponse) {
  Sc.boites.push_back({section, cle, "", reponse});
}
void AttendTexte(const std::string& texte, Reponse reponse) { Sc.boites.push_back({"", "", texte, reponse}); }
void AttendFichier(const std::string& cle, const std::string& reponse) { Sc.fichiers.emplace_back(cle, reponse); }
void AttendSaisie(const std::string& cle, const std::string& reponse) { Sc.saisies.emplace_back(cle, reponse); }
void AttendFenetre(const std::string& nom, std::optional<int> choix) { Sc.fenetres.emplace_back(nom, choix); }
void AttendBureau(const std::string& cible, IssueBureau issue) { Sc.bureau.emplace_back(cible, issue); }
const VuMachine& Vu() { return Sc.vu; }
std::string CleDe(const std::optional<CleTexte>& refus) { return refus ? std::string(refus->Cle()) : ""; }
const std::vector<BoiteMessage>& Boites() { return Sc.montrees; }
int Bips() { return Sc.bips; }
const std::vector<std::pair<int, std::string>>& Panneaux() { return Sc.panneaux; }

const std::string& Dossier() {
  if (!Sc.dossier) Sc.dossier = std::make_unique<DossierEssai>();
  return Sc.dossier->Chemin();
}

std::string EcritFichierEssai(const std::string& nom, const std::string& octets) {
  const std::string chemin = Dossier() + "/" + nom;
  std::ofstream(chemin, std::ios::binary) << octets;
  return chemin;
}

std::string LitFichierEssai(const std::string& chemin) {
  std::ifstream f(chemin, std::ios::binary);
  std::ostringstream s;
  s << f.rdbuf();
  return s.str();
}

std::vector<PointTrace> Trace(const std::string& code, const std::vector<std::pair<float, float>>& xy) {
  std::vector<PointTrace> points;
  points.reserve(xy.size());
  for (const auto& [x, y] : xy) points.push_back({x, y, CodePD, Code2(code)});
  return points;
}

void AjouteSequence(const std::string& code, const std::vector<std::pair<float, float>>& xy, std::int16_t decalage,
                    double profondeur) {
  const auto points = Trace(code, xy);
  TraceInitial.insert(TraceInitial.end(), points.begin(), points.end());
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
  if (Sequences.size() == 1 && Sequences[0].Code == Code2{}) Sequences.clear();
  Sequences.push_back({Code2(code), Faux, profondeur, Vrai, decalage, Vrai});
}

void AjouteCarre(const std::string& code, float x, float y, float cote, std::int16_t decalage, double profondeur) {
  AjouteSequence(code, {{x, y}, {x, y + cote}, {x + cote, y + cote}, {x + cote, y}, {x, y}}, decalage, profondeur);
}

int Lance(int argc, char** argv) {
  testing::InitGoogleMock(&argc, argv);
  testing::UnitTest::GetInstance()->listeners().Append(new Ecouteur);
  return RUN_ALL_TESTS();
}

}  // namespace essai
