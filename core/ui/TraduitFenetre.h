// Translation of a window: a walk over its controls.
#pragma once

#include <QWidget>

#include "core/Traduction.h"

namespace ovelin {

// Section and caption key "0" are the window's object name; every control whose object name is a key there takes
// its text, "namett" its tool tip. Kinds that hold several texts:
//   QTabWidget, QTabBar          name_index, then "tt"
//   QToolBar                     actions of it named "<toolbar>_<key>": the tool tip, then "tt"
//   QStatusBar                   labels in it by their name
//   QTreeView, QTableView        headers name_index
//   QComboBox, QListWidget       name_0, name_1 ... replace the items when there is a name_0
//   QAction, QMenu               text
// What has no translation keeps what it has: the French text of the window. Every control that can be reached gets
// an accessible name where it has none: its text, the label that is its buddy, or its tool tip.
void TraduireFenetre(QWidget& fenetre);

// A text of the window in its language, else its French.
QString TexteQt(CleTexte texte);

// The translation of a control's key, or `sinon` when the key is missing.
QString TraduireOu(const char* section, const QString& cle, const QString& sinon);

}  // namespace ovelin
