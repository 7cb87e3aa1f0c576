// Texts without a translation, controls without a name: what a user of another language, or one who hears the
// window, would miss.
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QDockWidget>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QToolBar>
#include <QTreeView>
#include <algorithm>

#include "core/ui/TraduitFenetre.h"
#include "tests/ui/support/SupportUi.h"

namespace essai {

namespace {

bool DitQuelqueChose(const QString& texte) {
  return std::any_of(texte.begin(), texte.end(), [](QChar c) { return c.isLetter(); });
}

class Recherche {
 public:
  explicit Recherche(QWidget& fenetre) : section_(fenetre.objectName().toStdString()) {
    Cherche(fenetre, QStringLiteral("0"), fenetre.windowTitle());
    Enfants(fenetre);
  }
  std::vector<std::string> trouvailles;

 private:
  void Cherche(const QObject& o, const QString& cle, const QString& texte) {
    if (!DitQuelqueChose(texte) || !ovelin::TraduireOu(section_.c_str(), cle, {}).isEmpty()) return;
    const std::string qui = cle.isEmpty() ? o.metaObject()->className() : cle.toStdString();
    trouvailles.push_back(section_ + "/" + qui + " \"" + texte.toStdString() + "\"");
  }

  void Enfants(const QObject& parent) {
    for (const QObject* o : parent.children()) Objet(*o);
  }

  void Objet(const QObject& o) {
    const QString nom = o.objectName();
    if (nom.startsWith(QLatin1String("qt_"))) {
      // parts of the toolkit's own controls; what lies on pages and in areas is ours
      if (o.inherits("QStackedWidget") || nom == QLatin1String("qt_scrollarea_viewport")) Enfants(o);
      return;
    }
    if (o.property("texteLibre").toBool()) return;
    if (const auto* action = qobject_cast<const QAction*>(&o)) return Action(*action);
    const auto* w = qobject_cast<const QWidget*>(&o);
    if (w == nullptr || (w->isWindow() && qobject_cast<const QMenu*>(w) == nullptr)) return;
    Controle(*w, nom);
    const bool feuille =
        qobject_cast<const QAbstractButton*>(w) != nullptr || qobject_cast<const QComboBox*>(w) != nullptr ||
        qobject_cast<const QLineEdit*>(w) != nullptr || qobject_cast<const QTabBar*>(w) != nullptr ||
        qobject_cast<const QAbstractItemView*>(w) != nullptr;
    if (!feuille) Enfants(o);
  }

  void Action(const QAction& a) {
    if (a.isSeparator() || a.menu() != nullptr) return;
    Cherche(a, a.objectName(), a.text());
    const QString bulle = a.toolTip();
    if (bulle != a.text().remove(QLatin1Char('&')) &&
        ovelin::TraduireOu(section_.c_str(), a.objectName(), {}) != bulle)
      Cherche(a, a.objectName() + QStringLiteral("tt"), bulle);
  }

  void Controle(const QWidget& w, const QString& nom) {
    const bool rempli = w.property("valeur").toBool();
    if (const auto* l = qobject_cast<const QLabel*>(&w); l != nullptr && !rempli) Cherche(w, nom, l->text());
    if (const auto* g = qobject_cast<const QGroupBox*>(&w)) Cherche(w, nom, g->title());
    if (const auto* d = qobject_cast<const QDockWidget*>(&w)) Cherche(w, nom, d->windowTitle());
    if (const auto* m = qobject_cast<const QMenu*>(&w)) Cherche(w, nom, m->title());
    const bool deBarre = w.parentWidget() != nullptr && w.parentWidget()->inherits("QToolBar") && nom.isEmpty();
    if (const auto* b = qobject_cast<const QAbstractButton*>(&w); b != nullptr && !deBarre)
      Cherche(w, nom, b->text());
    if (const auto* t = qobject_cast<const QTabWidget*>(&w)) {
      for (int i = 0; i < t->count(); ++i) Cherche(w, Indice(nom, i), t->tabText(i));
    }
    if (const auto* t = qobject_cast<const QTabBar*>(&w)) {
      for (int i = 0; i < t->count(); ++i) Cherche(w, Indice(nom, i), t->tabText(i));
    }
    const QAbstractItemModel* modele = nullptr;
    if (const auto* t = qobject_cast<const QTreeView*>(&w); t != nullptr && !t->isHeaderHidden())
      modele = t->model();
    if (const auto* t = qobject_cast<const QTableView*>(&w)) modele = t->model();
    for (int i = 0; modele != nullptr && !rempli && i < modele->columnCount(); ++i) {
      Cherche(w, Indice(nom, i), modele->headerData(i, Qt::Horizontal).toString());
    }
    if (!deBarre) Cherche(w, nom + QStringLiteral("tt"), w.toolTip());
  }

  static QString Indice(const QString& nom, int i) { return nom + QLatin1Char('_') + QString::number(i); }

  std::string section_;
};

}  // namespace

std::vector<std::string> SansTraduction(QWidget& fenetre) { return Recherche(fenetre).trouvailles; }

std::vector<std::string> SansNom(QWidget& fenetre) {
  std::vector<std::string> trouvailles;
  for (const QWidget* w : fenetre.findChildren<QWidget*>()) {
    const QString nom = w->objectName();
    const bool deQt = nom.startsWith(QLatin1String("qt_")) || w->window() != &fenetre ||
                      qobject_cast<const QTabBar*>(w->parentWidget()) != nullptr;
    if (deQt || w->focusPolicy() == Qt::NoFocus || nom.isEmpty()) continue;
    if (qobject_cast<const QTabWidget*>(w) != nullptr || qobject_cast<const QTabBar*>(w) != nullptr) continue;
    if (w->accessibleName().isEmpty()) trouvailles.push_back(nom.toStdString() + ": no accessible name");
    if (w->toolTip().isEmpty()) trouvailles.push_back(nom.toStdString() + ": no tool tip");
  }
  return trouvailles;
}

}  // namespace essai
