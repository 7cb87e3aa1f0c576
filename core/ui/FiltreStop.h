// The one stop of the program: its button, and Escape in any window.
#pragma once

#include <QObject>
#include <QPointer>
#include <QPushButton>

namespace ovelin {

// A red button that is there in every run, whoever has started it. The machine stops on the press, not when the
// button is let go. A press stops as the run wants it (ArretRampe), Escape at once.
class BoutonStop : public QPushButton {
  Q_OBJECT
 public:
  explicit BoutonStop(QWidget* parent = nullptr);
};

// Sees keys and presses before any window does, modal ones included. While the machine works (OperationCarte)
// Escape in any window and a press on a BoutonStop set StopDemande before anything else. Escape then goes on to a
// modal window, which it closes, and to no other one. While a modal window blocks the button, a second one lies
// over it in its place and belongs to the modal window, so that the press is never lost.
class FiltreStop : public QObject {
  Q_OBJECT
 public:
  explicit FiltreStop(BoutonStop& bouton);
  ~FiltreStop() override;
  FiltreStop(const FiltreStop&) = delete;
  FiltreStop& operator=(const FiltreStop&) = delete;

  bool eventFilter(QObject* objet, QEvent* e) override;

 private:
  void Prevoit();
  void Couvre();

  BoutonStop& bouton_;
  QPointer<BoutonStop> dessus_;  // over the button, child of the modal window
};

// Whether an event of the user's is one that stops a run, or belongs to it: passes that hold input back let it
// through.
bool EstUnArret(const QObject& objet, const QEvent& e);

}  // namespace ovelin
