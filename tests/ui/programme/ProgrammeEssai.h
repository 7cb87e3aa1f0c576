// The whole program in a test: its start, its windows, with the boxes of the test's script in place of real ones.
#pragma once

#include <QAction>
#include <filesystem>
#include <memory>
#include <string>

#include "app/ovelin/Programme.h"
#include "core/DocumentCourant.h"
#include "tests/ui/support/SupportUi.h"

namespace essai {

// A variable of the environment for as long as it stands.
class Variable {
 public:
  Variable(const char* nom, const std::string& valeur)
      : nom_(nom), avant_(qgetenv(nom)), la_(qEnvironmentVariableIsSet(nom)) {
    qputenv(nom, QByteArray::fromStdString(valeur));
  }
  ~Variable() {
    if (la_) {
      qputenv(nom_, avant_);
    } else {
      qunsetenv(nom_);
    }
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  const char* nom_;
  QByteArray avant_;
  bool la_;
};

// Settings, user's data and documents in the folder of the test; no tools to start.
class ProgrammeEssai {
 public:
  explicit ProgrammeEssai(const std::string& dessin = "", const std::string& config = Dossier() + "/config")
      : donnees_("XDG_DATA_HOME", Dossier() + "/donnees"),
        outils_("PATH", Dossier() + "/vide"),
        temporaire_("TMPDIR", DossierTemporaire()) {
    const ovelin::Services script = ovelin::Svc;
    ovelin::OptionsProgramme options;
    options.config = config;
    options.langue = "fr";
    options.dessin = dessin;
    programme = std::make_unique<ovelin::Programme>(options);
    ovelin::Svc.Montre = script.Montre;
    ovelin::Svc.ChoisitFichier = script.ChoisitFichier;
    ovelin::Svc.Saisit = script.Saisit;
    ovelin::Svc.Dimensionne = script.Dimensionne;
    ovelin::Svc.MarqueDecimale = '.';
  }
  ~ProgrammeEssai() {
    if (ovelin::F_Representation* f = Fenetre(); f != nullptr && f->isVisible()) {
      ovelin::Modifie = ovelin::Faux;
      f->close();
    }
    programme.reset();
  }
  ProgrammeEssai(const ProgrammeEssai&) = delete;
  ProgrammeEssai& operator=(const ProgrammeEssai&) = delete;

  bool Demarre() {
    const bool lance = programme->Demarre();
    if (Fenetre() != nullptr) Fenetre()->DossierDocuments.clear();
    Evenements();
    return lance;
  }
  [[nodiscard]] ovelin::F_Representation* Fenetre() const { return programme->Fenetre(); }
  [[nodiscard]] bool Active(const char* commande) const {
    const auto* action = Fenetre()->findChild<QAction*>(QString::fromLatin1(commande));
    return action != nullptr && action->isEnabled();
  }
  // Ctrl+O with that answer of the dialog.
  void Ouvre(const std::string& chemin) const {
    AttendFichier("mnu_Ouvrir", chemin);
    QTest::keyClick(Fenetre(), Qt::Key_O, Qt::ControlModifier);
    Evenements();
  }
  void Enregistre() const {
    QTest::keyClick(Fenetre(), Qt::Key_S, Qt::ControlModifier);
    Evenements();
  }

  std::unique_ptr<ovelin::Programme> programme;

 private:
  // What another program left must not be offered here.
  static std::string DossierTemporaire() {
    std::filesystem::create_directories(Dossier() + "/tmp");
    return Dossier() + "/tmp";
  }
  Variable donnees_, outils_, temporaire_;
};

// A settings file that is there: nothing is asked at the start.
inline std::string ConfigPresente(const std::string& contenu = "[OVELIN]\r\n") {
  std::filesystem::create_directories(Dossier() + "/config");
  return EcritFichierEssai("config/OVELIN.ini", contenu);
}

}  // namespace essai
