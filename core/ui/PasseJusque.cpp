#include "core/ui/PasseJusque.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPointer>
#include <QSinglePointEvent>
#include <QWheelEvent>
#include <QWindow>
#include <chrono>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "core/ui/EntreeUtilisateur.h"
#include "core/ui/FiltreStop.h"
#include "core/ui/Ouvrier.h"
#include "core/ui/ServicesQt.h"

namespace ovelin {

namespace {

QWidget* FenetreDe(const QObject* objet) {
  for (QWidget* fenetre : QApplication::topLevelWidgets()) {
    if (fenetre->windowHandle() == objet) return fenetre;
  }
  return nullptr;
}

// The control that an event of the window system is meant for: keys go to the one with the keyboard, presses to the
// one under them.
const QWidget* CibleDe(QObject* objet, const QEvent& e) {
  if (!objet->isWindowType()) return qobject_cast<QWidget*>(objet);
  QWidget* fenetre = FenetreDe(objet);
  if (fenetre == nullptr) return nullptr;
  QWidget* dedans = nullptr;
  if (e.isSinglePointEvent()) {
    dedans = fenetre->childAt(static_cast<const QSinglePointEvent&>(e).position().toPoint());
  } else if (QApplication::focusWidget() != nullptr && QApplication::focusWidget()->window() == fenetre) {
    dedans = QApplication::focusWidget();
  }
  return dedans != nullptr ? dedans : fenetre;
}

// A press is kept with its release, since both are told before either has done anything.
bool SeTient(QEvent::Type type) { return EntreeDe(type) == EntreeUtilisateur::Appui; }

// Makes the event again when it is due. No copy of it: the places of the pointer in a copy are shared with the
// pointing device, and go on with the hand while the event is held.
std::function<std::unique_ptr<QEvent>()> Refait(const QEvent& e) {
  if (e.type() == QEvent::Wheel) {
    const auto& roue = static_cast<const QWheelEvent&>(e);
    return [ici = roue.position(), global = roue.globalPosition(), pixels = roue.pixelDelta(),
            angle = roue.angleDelta(), boutons = roue.buttons(), touches = roue.modifiers(), phase = roue.phase(),
            inverse = roue.inverted()] {
      return std::make_unique<QWheelEvent>(ici, global, pixels, angle, boutons, touches, phase, inverse);
    };
  }
  if (e.isSinglePointEvent()) {
    const auto& souris = static_cast<const QMouseEvent&>(e);
    return [type = souris.type(), ici = souris.position(), scene = souris.scenePosition(),
            global = souris.globalPosition(), bouton = souris.button(), boutons = souris.buttons(),
            touches = souris.modifiers()] {
      return std::make_unique<QMouseEvent>(type, ici, scene, global, bouton, boutons, touches);
    };
  }
  return [copie = std::shared_ptr<QEvent>(e.clone())] { return std::unique_ptr<QEvent>(copie->clone()); };
}

class Filtre : public QObject {
 public:
  Filtre(const JugeEvenement& juge, const std::function<void()>& arrete)
      : juge_(juge), arrete_(arrete), modale_(QApplication::activeModalWidget()) {
    qApp->installEventFilter(this);
  }
  // What was held comes from the event loop, one after the other; one that starts something long keeps the next
  // ones waiting.
  ~Filtre() override {
    for (Tenu& tenu : tenus_) {
      Apres([objet = tenu.objet, refait = std::move(tenu.refait)] {
        if (objet != nullptr) QCoreApplication::sendEvent(objet, refait().get());
      });
    }
  }
  Filtre(const Filtre&) = delete;
  Filtre& operator=(const Filtre&) = delete;

  [[nodiscard]] bool Arretee() const { return arretee_; }

  bool eventFilter(QObject* objet, QEvent* e) override {
    if (QApplication::activeModalWidget() != modale_ || EstUnArret(*objet, *e)) return false;
    if (e->type() == QEvent::Timer) return RepeteUnePression(*objet);
    // A key of a command: the command itself waits.
    if (e->type() == QEvent::Shortcut) return Tient(objet, *e);
    const EntreeUtilisateur entree = EntreeDe(e->type());
    if (entree == EntreeUtilisateur::Aucune || entree == EntreeUtilisateur::Raccourci) return false;
    const QWidget* cible = CibleDe(objet, *e);
    switch (cible != nullptr ? juge_(*cible, *e) : SortEvenement::Refuse) {
      case SortEvenement::Laisse:
        return false;
      case SortEvenement::Arrete:
        arretee_ = true;
        arrete_();
        return true;
      case SortEvenement::Tient:
        // What reaches a control past its window isn't the user's hand.
        return !objet->isWindowType() || !SeTient(e->type()) || Tient(objet, *e);
      case SortEvenement::Refuse:
        break;
    }
    return true;
  }

 private:
  struct Tenu {
    QPointer<QObject> objet;
    std::function<std::unique_ptr<QEvent>()> refait;
  };
  bool Tient(QObject* objet, const QEvent& e) {
    tenus_.push_back({objet, Refait(e)});
    return true;
  }

  const JugeEvenement& juge_;
  const std::function<void()>& arrete_;
  const QWidget* modale_;
  std::vector<Tenu> tenus_;
  bool arretee_ = false;
};

}  // namespace

bool MenePasse(const PasseInterruptible& passe, const JugeEvenement& juge) {
  constexpr std::chrono::milliseconds Delai(8);
  const Passe pendant;
  Filtre filtre(juge, passe.arrete);
  Ouvrier ouvrier(passe.noyau);
  while (!ouvrier.Fini(Delai)) {
    QCoreApplication::processEvents();
    passe.pouls();
  }
  ouvrier.Rend();
  passe.pouls();
  return filtre.Arretee();
}

}  // namespace ovelin
