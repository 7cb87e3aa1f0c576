// The services of the core, filled with Qt: boxes, dialogs, clock, events.
#pragma once

#include <QWidget>
#include <memory>

#include "base/SansCopie.h"
#include "core/Services.h"

class QCloseEvent;
class QMessageBox;

namespace ovelin {

// Boxes, file dialogs, prompt, clock, sleep, beep, events, the worker. Progress, panels, lists and the size dialog
// belong to the main window, which fills them itself.
void InstalleServicesQt();

// A message or a question as it is shown. The first button is the default one; Escape and the window's cross answer
// as the most careful button does.
std::unique_ptr<QMessageBox> FaitBoite(const BoiteMessage& boite, QWidget* proprietaire);

// Owner of dialogs: the window that is in front, or the one set here.
void ChoisitProprietaire(QWidget* fenetre);
QWidget* Proprietaire();

// Something long is running and the user's input is held back. A wish that arrives meanwhile (a timer, a quit) is
// put off with `Apres` and comes when it is over.
bool PasseEnCours();
void Apres(const std::function<void()>& souhait);
// For the closeEvent of a window: while something long runs the request is refused for now, and comes again behind
// it. True: put off.
bool RemetFermeture(QWidget& fenetre, QCloseEvent& demande);
// Held over a pass: nested ones count, the last end lets the postponed wishes run, in their order, from the event
// loop.
class Passe : base::SansCopie {
 public:
  Passe();
  ~Passe();
};

}  // namespace ovelin
