#include "tests/ui/captures/Scenes.h"

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTabBar>
#include <QToolButton>
#include <filesystem>

#include "app/ovelin/Composition.h"
#include "closed/CarteVirtuelle.h"
#include "controller/ChoixCarte.h"
#include "controller/ClsCdeZENIK.h"
#include "core/DocumentCourant.h"
#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/ui/ServicesQt.h"
#include "gcode/ui/F_Gcode.h"
#include "run/Module_GCode.h"
#include "tests/ui/support/SupportUi.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/ProprietesSelection.h"
#include "workspace/Module_Reprise.h"
#include "workspace/ui/F_Representation.h"
#include "workspace/ui/dialogues/F_Reprise.h"

namespace captures {

namespace {

std::unique_ptr<QWidget> Principale() {
  auto fenetre = std::make_unique<ovelin::F_Representation>();
  fenetre->Form_Load("");
  essai::Controle<QTimer>(*fenetre, "Timer_Cadre")->stop();  // the picture has the size that it was asked for
  return fenetre;
}

// One path in focus and that page of the side panel.
std::function<void(QWidget&)> Page(int page, std::size_t choisies) {
  return [page, choisies](QWidget& fenetre) {
    for (std::size_t i = 0; i < ovelin::Sequences.size(); ++i) {
      ovelin::Sequences[i].Selection = i < choisies ? ovelin::Vrai : ovelin::Faux;
    }
    essai::Controle<QTabBar>(fenetre, "Option1")->setCurrentIndex(page);
    ovelin::Svc.Rafraichit();
  };
}

// Three changes and a look, the last change taken back, beside their list.
void Pas(QWidget& fenetre) {
  auto* image = essai::Controle<QWidget>(fenetre, "PB1");
  const auto commande = [&fenetre](const char* nom) {
    essai::Controle<QAction>(fenetre, nom)->trigger();
    essai::Evenements();
  };
  for (int i = 0; i < 2; ++i) QTest::keyClick(image, Qt::Key_Right, Qt::ShiftModifier);
  commande("mnu_Dupliquer");
  commande("mnu_ZoomMoins");
  QTest::keyClick(image, Qt::Key_Up, Qt::ShiftModifier);
  commande("mnu_Undo");
  commande("mnu_Historique");
}

// A pocket around an island: the fourth path of the plate around the third, with a tool that fits between them.
void Ilot(QWidget& fenetre) {
  essai::Controle<QTabBar>(fenetre, "Option1")->setCurrentIndex(1);
  essai::Tape(*essai::Controle<QLineEdit>(fenetre, "TB_RayonFraise"), "1");
  const auto seule = [](std::size_t choisie) {
    ovelin::DeselectionneTout();
    ovelin::BasculeSelection(ovelin::Sequences.at(choisie).Code);
  };
  seule(3);
  ovelin::PocheSelection(true);
  seule(2);
  ovelin::IlotSelection(true);
  essai::Controle<QWidget>(fenetre, "PB1")->setFocus();
  ovelin::Svc.Rafraichit();
}

// The workshop with the drawing's own job, looked at that way, and a line in it that it refuses.
std::function<void(QWidget&)> Programme(int vue) {
  return [vue](QWidget& fenetre) {
    const std::string chemin = ovelin::DossierTemp + "/programme.nc";
    ovelin::EcritureNC ecriture;
    if (!ovelin::EcritGCode(chemin, ecriture)) return;
    ovelin::EcritFichierEntier(chemin, ovelin::LitFichierEntier(chemin).value_or("") + "G02 X10 Y10 I5\r\n");
    static_cast<ovelin::F_Gcode&>(fenetre).Ouvre(chemin);
    essai::Clique(*essai::Controle<QToolButton>(fenetre, ("Option_Vue_" + std::to_string(vue)).c_str()));
    essai::Clique(*essai::Controle<QPushButton>(fenetre, "Btn_Ajuster"));
  };
}

// Work of two drawings that waits.
std::unique_ptr<QWidget> DeuxReprises() {
  namespace fs = std::filesystem;
  ovelin::DossierReprises = ovelin::DossierTemp + "/reprises";
  fs::create_directories(ovelin::DossierReprises);
  int n = 0;
  for (const char* nom : {"equerre-attaches.OVL", "plaque-poches.OVL"}) {
    const std::string garde = ovelin::DossierReprises + "/" + std::to_string(++n);
    fs::copy_file(essai::DossierExemples() + "/" + nom, garde + ".reprise", fs::copy_options::overwrite_existing);
    ovelin::EcritFichierEntier(garde + ".dessin", std::string("/home/atelier/dessins/") + nom);
  }
  return std::make_unique<ovelin::F_Reprise>();
}

// A virtual board behind the program, with which something has been done already.
void CarteEnService() {
  zenikcom::ConditionsCarte c;
  c.rapide = true;
  const auto carte = zenikcom::CreeCarteVirtuelle(std::move(c));
  ovelin::LaCarte = {ovelin::GenreCarte::Virtuelle, carte, ""};
  ovelin::CdeZENIK = std::make_unique<ovelin::ClsCdeZENIK>(zenikcom::LiaisonVirtuelle(carte));
  ovelin::CdeZENIK->TableVerif();
  ovelin::CdeZENIK->EnvoiUSB();
  for (const auto& [x, y] : {std::pair{60.0F, 0.0F}, {20.0F, 40.0F}, {-50.0F, 10.0F}, {-30.0F, -50.0F}}) {
    float v = 5, t = 0;
    ovelin::CdeZENIK->CommandeDATAmm(x, y, 0, v, t);
  }
  ovelin::CdeZENIK->CommandeDATAend();
  while (ovelin::CdeZENIK->EnCours != ovelin::Faux) ovelin::CdeZENIK->DemandeInformation();
  ovelin::CdeZENIK->MotorOnOff(true);
  std::string texte = "OVELIN";
  ovelin::CdeZENIK->DisplaySend(texte, 0, 0);
}

Scene SceneEnService(const std::string& nom, const char* fenetre, std::function<void(QWidget&)> prepare = {}) {
  const ovelin::LigneFenetre* ligne = ovelin::ChercheFenetre(ovelin::TableFenetres(), fenetre);
  const auto construit = [ligne] {
    CarteEnService();
    return ovelin::FaitFenetre(*ligne, nullptr);
  };
  return {nom, "", false, construit, std::move(prepare), {{}}};
}

// The frames of the window of moves by hand, the pages of tables with everything that they can show, the panel.
std::vector<Scene> Machine() {
  const auto touche = [](Qt::Key cle) {
    return [cle](QWidget& f) { QTest::keyClick(essai::Controle<QWidget>(f, "Img_Clavier"), cle); };
  };
  const auto bouton = [](const char* nom) {
    return [nom](QWidget& f) { essai::Clique(*essai::Controle<QPushButton>(f, nom)); };
  };
  return {SceneEnService("F_PilMan-aide", "F_PilMan", touche(Qt::Key_F1)),
          SceneEnService("F_PilMan-valeurs", "F_PilMan", touche(Qt::Key_V)),
          SceneEnService("F_PilMan-origine", "F_PilMan", bouton("Lbl_RAZ")),
          SceneEnService("F_PilMan-retour", "F_PilMan", bouton("Lbl_Origine")),
          SceneEnService("F_CarteVirtuelle-service", "F_CarteVirtuelle"),
          SceneEnService("F_ChangtTable-service", "F_ChangtTable"),
          SceneEnService("F_ParamMachine-service", "F_ParamMachine",
                         [](QWidget& f) { essai::Controle<QComboBox>(f, "Combo_SAV_0")->setCurrentIndex(1); })};
}

// A box as the services show it.
Scene SceneBoite(const std::string& nom, ovelin::CleTexte texte, const std::string& suite, ovelin::Icone icone,
                 ovelin::Boutons boutons) {
  const auto construit = [=]() -> std::unique_ptr<QWidget> {
    ovelin::BoiteMessage boite = ovelin::BoiteDe(texte, icone, boutons);
    boite.texte += suite;
    return ovelin::FaitBoite(boite, nullptr);
  };
  return {nom, "", false, construit, {}, {{}}};
}

std::vector<Scene> Boites() {
  using ovelin::Boutons;
  using ovelin::Icone;
  using ovelin::Textes;
  std::string chemin = "/home";
  for (int i = 0; i < 12; ++i) chemin += "/un-dossier-de-dessins";
  return {SceneBoite("Boite-lecture", Textes::LectureRefusee, "\n" + chemin + "/plaque.dxf: 12", Icone::Critique,
                     Boutons::Ok),
          SceneBoite("Boite-travail", Textes::TravailNonEnregistre, "\nplaque.dxf", Icone::Question,
                     Boutons::OuiNonAnnuler),
          SceneBoite("Boite-defaut", Textes::DefautPuisFin, "", Icone::Question, Boutons::OuiNon),
          SceneBoite("Boite-valeur", Textes::ValeurRefusee,
                     "\n" + chemin + "/OVELIN.ini:3: RayonFraise=1.5mm\n" + chemin +
                         "/OVELIN.ini:17: DB2=Bois 1.5mm Diamant -4 -4 8.33 2 5 4",
                     Icone::Exclamation, Boutons::Ok)};
}

std::vector<Scene> Principales() {
  const QSize petite(1024, 700), moyenne(1280, 800), grande(1600, 1000);
  return {
      {"F_Representation-vide", "", true, Principale, {}, {moyenne}},
      {"F_Representation-plaque-points", "plaque.dxf", true, Principale, Page(0, 1), {petite, moyenne}},
      {"F_Representation-plaque-fraisage", "plaque.dxf", true, Principale, Page(1, 1), {petite, moyenne, grande}},
      {"F_Representation-plaque-sequences", "plaque.dxf", true, Principale, Page(2, 2), {petite, moyenne}},
      {"F_Representation-enseigne", "enseigne.plt", true, Principale, Page(1, 0), {moyenne, grande}},
      {"F_Representation-poches", "plaque-poches.OVL", true, Principale, Page(2, 2), {moyenne}},
      {"F_Representation-ilot", "plaque.dxf", true, Principale, Ilot, {moyenne}},
      {"F_Representation-historique", "plaque.dxf", true, Principale, Pas, {petite, moyenne}},
      {"F_Representation-attaches", "equerre-attaches.OVL", true, Principale, Page(1, 1), {moyenne}},
  };
}

// Sizes of a window that shows more of itself in others than its own and a large one; an invalid one is its own.
std::vector<QSize> TaillesDe(const std::string& nom) {
  const QSize propre;
  if (nom == "F_BD") return {{700, 420}, propre, {1280, 720}};
  return {propre, {900, 700}};
}

}  // namespace

std::vector<Scene> Scenes() {
  std::vector<Scene> scenes = Principales();
  for (Scene& boite : Boites()) scenes.push_back(std::move(boite));
  scenes.push_back({"F_Reprise-deux", "", false, DeuxReprises, {}, {{}, {400, 360}, {900, 700}}});
  for (const ovelin::LigneFenetre& ligne : ovelin::TableFenetres()) {
    const auto construit = [&ligne] { return ovelin::FaitFenetre(ligne, nullptr); };
    scenes.push_back({ligne.nom, "plaque.dxf", false, construit, {}, TaillesDe(ligne.nom)});
  }
  const ovelin::LigneFenetre* atelier = ovelin::ChercheFenetre(ovelin::TableFenetres(), "F_Gcode");
  const auto construit = [atelier] { return ovelin::FaitFenetre(*atelier, nullptr); };
  scenes.push_back({"F_Gcode-programme", "plaque-poches.OVL", false, construit, Programme(0), {{}, {700, 480}}});
  scenes.push_back({"F_Gcode-espace", "equerre-attaches.OVL", false, construit, Programme(3), {{}}});
  for (Scene& fenetre : Machine()) scenes.push_back(std::move(fenetre));  // last: their board stays
  return scenes;
}

}  // namespace captures
