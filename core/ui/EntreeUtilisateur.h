// What comes from the user's hand: the one list of such events, for all that holds input back.
#pragma once

#include <QEvent>
#include <QObject>
#include <cstdint>

namespace ovelin {

enum class EntreeUtilisateur : std::uint8_t {
  Aucune,     // the program's own
  Appui,      // a press, a release, a key, the wheel: worth keeping for later
  Raccourci,  // the key of a command
  Mouvement,  // of the pointer
  Autre,
};
EntreeUtilisateur EntreeDe(QEvent::Type type);

// A control that an arrow held down works by a timer of its own: it goes on behind what holds input back.
bool RepeteUnePression(const QObject& objet);

}  // namespace ovelin
