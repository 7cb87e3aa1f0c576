#include "core/ui/TraduitFenetre.h"

#include <QAbstractButton>
#include <QAbstractItemModel>
#include <QAction>
#include <QComboBox>
#include <QDockWidget>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QSignalBlocker>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QToolBar>
#include <QTreeView>
#include <vector>

#include "core/Traduction.h"

namespace ovelin {

namespace {

// Accessible names given here, so that the next walk may give others; names of the window's own stay.
constexpr const char* NomDonne = "ovelin_nom";
// French texts that a translation has replaced: they come back where the next language has none.
constexpr const char* Origine = "ovelin_origine_";

class Marche {
 public:
  explicit Marche(const QWidget& fenetre) : section_(fenetre.objectName().toStdString()) {}

  void Fenetre(QWidget& fenetre) {
    Pose(fenetre, QStringLiteral("0"), fenetre.windowTitle(), [&](const QString& t) { fenetre.setWindowTitle(t); });
    Enfants(fenetre);
    // once every label has its text
    for (QWidget* w : reprises_) Nomme(*w);
  }

 private:
  // The text of a key goes to `met`; without one, what stood there before the first translation.
  template <class Met>
  bool Pose(QObject& objet, const QString& cle, const QString& present, Met met) {
    const QByteArray memoire = Origine + cle.toLatin1();
    const QVariant origine = objet.property(memoire.constData());
    const QString traduit = TraduireOu(section_.c_str(), cle, {});
    if (!traduit.isEmpty()) {
      if (!origine.isValid()) objet.setProperty(memoire.constData(), present);
      met(traduit);
      return true;
    }
    if (origine.isValid()) met(origine.toString());
    return false;
  }

  void Bulle(QWidget& w, const QString& nom) {
    Pose(w, nom + QStringLiteral("tt"), w.toolTip(), [&](const QString& t) { w.setToolTip(t); });
  }

  void Enfants(const QObject& parent) {
    for (QObject* enfant : parent.children()) Objet(*enfant);
  }

  void Objet(QObject& objet) {
    const QString nom = objet.objectName();
    if (auto* action = qobject_cast<QAction*>(&objet)) return Action(*action, nom);
    auto* w = qobject_cast<QWidget*>(&objet);
    if (w == nullptr) return Enfants(objet);
    auto* menu = qobject_cast<QMenu*>(w);
    if (w->isWindow() && menu == nullptr) return;  // a window of its own section
    if (!nom.isEmpty() && !nom.startsWith(QLatin1String("qt_"))) Controle(*w, nom);
    Enfants(objet);
    reprises_.push_back(w);
  }

  void Action(QAction& a, const QString& nom) {
    if (nom.isEmpty()) return;
    auto* barre = BarreDe(a);
    const bool propre = barre != nullptr && nom.startsWith(barre->objectName() + QLatin1Char('_'));
    // A button of a tool bar's own: its text is its tip. The text serves where there is no room for the button.
    Pose(a, nom, a.text(), [&](const QString& t) {
      a.setText(t);
      if (propre) a.setToolTip(t);
    });
    Pose(a, nom + QStringLiteral("tt"), a.toolTip(), [&](const QString& t) { a.setToolTip(t); });
  }

  static QToolBar* BarreDe(const QAction& a) {
    for (QObject* o : a.associatedObjects()) {
      if (auto* barre = qobject_cast<QToolBar*>(o)) return barre;
    }
    return nullptr;
  }

  void Controle(QWidget& w, const QString& nom) {
    if (auto* onglets = qobject_cast<QTabWidget*>(&w)) {
      Onglets(*onglets, nom);
    } else if (auto* barre = qobject_cast<QTabBar*>(&w)) {
      Onglets(*barre, nom);
    } else if (auto* combo = qobject_cast<QComboBox*>(&w)) {
      Elements(*combo, nom);
    } else if (auto* liste = qobject_cast<QListWidget*>(&w)) {
      Elements(*liste, nom);
    } else if (auto* arbre = qobject_cast<QTreeView*>(&w)) {
      EnTetes(w, nom, arbre->model());
    } else if (auto* table = qobject_cast<QTableView*>(&w)) {
      EnTetes(w, nom, table->model());
    } else {
      Texte(w, nom);
    }
    Bulle(w, nom);
  }

  void Texte(QWidget& w, const QString& nom) {
    if (auto* etiquette = qobject_cast<QLabel*>(&w)) {
      Pose(w, nom, etiquette->text(), [&](const QString& t) { etiquette->setText(t); });
    } else if (auto* bouton = qobject_cast<QAbstractButton*>(&w)) {
      Pose(w, nom, bouton->text(), [&](const QString& t) { bouton->setText(t); });
    } else if (auto* groupe = qobject_cast<QGroupBox*>(&w)) {
      Pose(w, nom, groupe->title(), [&](const QString& t) { groupe->setTitle(t); });
    } else if (auto* menu = qobject_cast<QMenu*>(&w)) {
      Pose(w, nom, menu->title(), [&](const QString& t) { menu->setTitle(t); });
    } else if (qobject_cast<QDockWidget*>(&w) != nullptr || qobject_cast<QToolBar*>(&w) != nullptr) {
      Pose(w, nom, w.windowTitle(), [&](const QString& t) { w.setWindowTitle(t); });
    } else {
      // nothing to write on: what the control is called to those who don't see it
      Pose(w, nom, w.accessibleName(), [&](const QString& t) { w.setAccessibleName(t); });
    }
  }

  template <class T>
  void Onglets(T& onglets, const QString& nom) {
    for (int i = 0; i < onglets.count(); ++i) {
      const QString cle = nom + QLatin1Char('_') + QString::number(i);
      Pose(onglets, cle, onglets.tabText(i), [&](const QString& t) { onglets.setTabText(i, t); });
      Pose(onglets, cle + QStringLiteral("tt"), onglets.tabToolTip(i),
           [&](const QString& t) { onglets.setTabToolTip(i, t); });
    }
  }

  void EnTetes(QWidget& vue, const QString& nom, QAbstractItemModel* modele) {
    if (modele == nullptr) return;
    for (int i = 0; i < modele->columnCount(); ++i) {
      const QString cle = nom + QLatin1Char('_') + QString::number(i);
      Pose(vue, cle, modele->headerData(i, Qt::Horizontal).toString(),
           [&](const QString& t) { modele->setHeaderData(i, Qt::Horizontal, t); });
      Pose(vue, cle + QStringLiteral("tt"), modele->headerData(i, Qt::Horizontal, Qt::ToolTipRole).toString(),
           [&](const QString& t) { modele->setHeaderData(i, Qt::Horizontal, t, Qt::ToolTipRole); });
    }
  }

  // The items of the translation in place of those of the window; what hangs on an item (its data, its picture)
  // and the choice stay.
  template <class T>
  void Elements(T& liste, const QString& nom) {
    QStringList textes;
    for (;;) {
      const QString t = TraduireOu(section_.c_str(), nom + QLatin1Char('_') + QString::number(textes.size()), {});
      if (t.isEmpty()) break;
      textes += t;
    }
    const QByteArray memoire = QByteArray(Origine) + "elements";
    const QVariant origine = liste.property(memoire.constData());
    if (textes.isEmpty()) {
      if (!origine.isValid()) return;
      textes = origine.toStringList();
    } else if (!origine.isValid()) {
      liste.setProperty(memoire.constData(), TextesDe(liste));
    }
    const QSignalBlocker silence(&liste);
    Remplit(liste, textes);
  }

  static QStringList TextesDe(const QComboBox& c) {
    QStringList textes;
    for (int i = 0; i < c.count(); ++i) textes += c.itemText(i);
    return textes;
  }
  static QStringList TextesDe(const QListWidget& l) {
    QStringList textes;
    for (int i = 0; i < l.count(); ++i) textes += l.item(i)->text();
    return textes;
  }
  static void Remplit(QComboBox& c, const QStringList& textes) {
    for (int i = 0; i < textes.size(); ++i) {
      if (i < c.count()) {
        c.setItemText(i, textes[i]);
      } else {
        c.addItem(textes[i]);
      }
    }
    while (c.count() > textes.size()) c.removeItem(c.count() - 1);
  }
  static void Remplit(QListWidget& l, const QStringList& textes) {
    for (int i = 0; i < textes.size(); ++i) {
      if (i < l.count()) {
        l.item(i)->setText(textes[i]);
      } else {
        l.addItem(textes[i]);
      }
    }
    while (l.count() > textes.size()) delete l.takeItem(l.count() - 1);
  }

  // A name for those who hear the window: the text on the control, the label beside it, the tool tip.
  static void Nomme(QWidget& w) {
    if (w.focusPolicy() == Qt::NoFocus || w.objectName().startsWith(QLatin1String("qt_"))) return;
    if (!w.accessibleName().isEmpty() && w.accessibleName() != w.property(NomDonne).toString()) return;
    QString nom;
    if (const auto* bouton = qobject_cast<const QAbstractButton*>(&w)) nom = bouton->text();
    if (const auto* groupe = qobject_cast<const QGroupBox*>(&w)) nom = groupe->title();
    if (nom.isEmpty()) nom = Etiquette(w);
    if (nom.isEmpty()) nom = w.toolTip();
    nom = nom.remove(QLatin1Char('&')).trimmed();
    while (nom.endsWith(QLatin1Char(':')) || nom.endsWith(QLatin1Char(' ')) || nom.endsWith(QChar(0xA0)))
      nom.chop(1);
    if (nom.isEmpty()) return;
    w.setAccessibleName(nom);
    w.setProperty(NomDonne, nom);
  }

  static QString Etiquette(const QWidget& w) {
    const QWidget* fenetre = w.window();
    for (const QLabel* l : fenetre->findChildren<QLabel*>()) {
      if (l->buddy() == &w) return l->text();
    }
    return {};
  }

  std::string section_;
  std::vector<QWidget*> reprises_;  // controls that have been walked
};

}  // namespace

QString TraduireOu(const char* section, const QString& cle, const QString& sinon) {
  const std::string demandee = cle.toStdString();
  if (demandee.empty()) return sinon;
  const std::string texte = Traduire(section, demandee);
  return texte == demandee ? sinon : QString::fromStdString(texte);
}

QString TexteQt(CleTexte texte) {
  const std::string traduit = Traduire(texte);
  if (traduit != texte.Cle() || texte.Francais().empty()) return QString::fromStdString(traduit);
  return QString::fromUtf8(texte.Francais().data(), static_cast<qsizetype>(texte.Francais().size()));
}

void TraduireFenetre(QWidget& fenetre) { Marche(fenetre).Fenetre(fenetre); }

}  // namespace ovelin
