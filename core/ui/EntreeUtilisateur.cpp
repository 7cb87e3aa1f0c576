#include "core/ui/EntreeUtilisateur.h"

#include <QAbstractButton>
#include <QAbstractSlider>

namespace ovelin {

EntreeUtilisateur EntreeDe(QEvent::Type type) {
  switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Wheel:
      return EntreeUtilisateur::Appui;
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
      return EntreeUtilisateur::Raccourci;
    case QEvent::MouseMove:
    case QEvent::TabletMove:
      return EntreeUtilisateur::Mouvement;
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletRelease:
    case QEvent::NativeGesture:
    case QEvent::Drop:
      return EntreeUtilisateur::Autre;
    default:
      return EntreeUtilisateur::Aucune;
  }
}

bool RepeteUnePression(const QObject& objet) {
  return qobject_cast<const QAbstractButton*>(&objet) != nullptr ||
         qobject_cast<const QAbstractSlider*>(&objet) != nullptr;
}

}  // namespace ovelin
