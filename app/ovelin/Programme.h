// The program with windows from its first line to its last.
#pragma once

#include <QApplication>
#include <QPointer>
#include <QTimer>
#include <functional>
#include <memory>
#include <string>

#include "app/ovelin/MiseAJour.h"
#include "app/ovelin/Options.h"
#include "app/ovelin/Signaux.h"
#include "base/SansCopie.h"
#include "workspace/Module_Cycle.h"
#include "workspace/ui/F_Representation.h"

namespace ovelin {

// Nothing that a handler throws gets through the toolkit: want of memory is told and the program goes on with what
// stands; anything else is the end, behind `ArretFatal`.
class Application : public QApplication {
 public:
  using QApplication::QApplication;
  bool notify(QObject* objet, QEvent* e) override;
};

// The services, the hooks of the start, the main window. Stands beside an application, as long as the program runs.
class Programme : base::SansCopie {
 public:
  explicit Programme(OptionsProgramme options);
  ~Programme();

  // The start, up to the main window. False: a second copy, which the user has been told.
  bool Demarre();
  // Tells a write of the settings that has failed since it was last asked, each reason once.
  void SignaleReglages();
  // A signal wants the end: the machine stops, settings are written, edited work stays for the next start, nobody
  // is asked. A loop of a dialog or of a pass that runs meanwhile isn't gone back to.
  void TermineParSignal(int signal);
  // The desktop ends its session. Where a program may ask, the user's answer comes back; otherwise as a signal.
  bool FinDeSession(bool peutDemander);
  // Ends the process with that status: without unwinding, since the stack holds loops of dialogs.
  std::function<void(int statut)> Quitte;
  [[nodiscard]] F_Representation* Fenetre() const { return fenetre_.get(); }
  // What the start gets; `Demarre` uses it, tests look at it.
  CrochetsDemarrage Crochets();

 private:
  OptionsProgramme options_;
  std::unique_ptr<F_Representation> fenetre_;
  MiseAJour miseAJour_;
  QTimer surveille_;
  std::string dejaDite_;
  std::unique_ptr<Signaux> signaux_;
};

// The whole program; the result is its exit status.
int LanceProgramme(int argc, char** argv);

}  // namespace ovelin
