// Texts that find no room, and children that lie over each other: what makes a window look broken in one language
// and whole in another.
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDockWidget>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QToolBar>
#include <QToolButton>
#include <QTreeView>
#include <algorithm>

#include "tests/ui/support/SupportUi.h"

namespace essai {

namespace {

using Trouvailles = std::vector<std::string>;

bool Interne(const QWidget& w) { return w.objectName().startsWith(QLatin1String("qt_")); }

std::string NomDe(const QWidget& w) {
  const QString nom = w.objectName();
  return nom.isEmpty() ? std::string("(") + w.metaObject()->className() + ")" : nom.toStdString();
}

QSize TailleTexte(const QWidget& w, const QString& texte) {
  return w.fontMetrics().size(Qt::TextShowMnemonic, texte);
}

class Examen {
 public:
  explicit Examen(QWidget& fenetre) : fenetre_(fenetre) {}

  Trouvailles Lance() {
    Visite(fenetre_);
    std::sort(trouvailles_.begin(), trouvailles_.end());
    trouvailles_.erase(std::unique(trouvailles_.begin(), trouvailles_.end()), trouvailles_.end());
    return trouvailles_;
  }

 private:
  void Dit(const QWidget& w, const QString& texte, int voulu, int place, const char* sens) {
    if (voulu <= place) return;
    trouvailles_.push_back(NomDe(w) + " \"" + texte.toStdString() + "\": " + std::to_string(voulu) + " px " + sens +
                           " in " + std::to_string(place));
  }

  // ---- texts

  void Tient(const QWidget& w, const QString& texte, const QSize& place, int enPlus = 0) {
    if (texte.isEmpty()) return;
    const QSize taille = TailleTexte(w, texte);
    Dit(w, texte, taille.width() + enPlus, place.width(), "wide");
    // ascenders and descenders are drawn without the leading: a line may be a pixel or two lower than its metrics
    Dit(w, texte, taille.height() - 2, place.height(), "high");
  }

  void Etiquette(const QLabel& l) {
    if (l.text().isEmpty()) return;
    const bool riche = Qt::mightBeRichText(l.text()) && l.textFormat() != Qt::PlainText;
    const QSize bord(l.frameWidth() * 2 + l.margin() * 2, l.frameWidth() * 2 + l.margin() * 2);
    const QSize place = l.contentsRect().size() - QSize(l.margin(), l.margin()) * 2;
    if (l.wordWrap()) {
      Dit(l, l.text(), l.heightForWidth(l.width()) - 2, l.height(), "high");
      if (riche) return;
      for (const QString& mot : l.text().split(QLatin1Char(' '))) {
        Dit(l, mot, TailleTexte(l, mot).width(), place.width(), "wide");
      }
    } else if (riche) {
      Dit(l, l.text(), l.sizeHint().width() - bord.width(), place.width(), "wide");
    } else {
      Tient(l, l.text(), place);
    }
  }

  void Bouton(const QAbstractButton& b) {
    if (b.text().isEmpty()) return;
    if (const auto* outil = qobject_cast<const QToolButton*>(&b)) {
      if (outil->toolButtonStyle() == Qt::ToolButtonIconOnly && !outil->icon().isNull()) return;
      Dit(b, b.text(), outil->sizeHint().width(), outil->width(), "wide");
      return;
    }
    QStyleOptionButton option;
    option.initFrom(&b);
    option.text = b.text();
    const int image = b.icon().isNull() ? 0 : b.iconSize().width() + 4;
    QStyle::SubElement element = QStyle::SE_PushButtonContents;
    if (b.inherits("QCheckBox")) element = QStyle::SE_CheckBoxContents;
    if (b.inherits("QRadioButton")) element = QStyle::SE_RadioButtonContents;
    QRect place = b.style()->subElementRect(element, &option, &b);
    if (element == QStyle::SE_PushButtonContents) place.setHeight(b.height() - 2);
    Tient(b, b.text(), place.size(), image);
  }

  void Onglets(const QTabBar& barre) {
    for (int i = 0; i < barre.count(); ++i) {
      if (!barre.isTabVisible(i)) continue;
      const int image = barre.tabIcon(i).isNull() ? 0 : barre.iconSize().width() + 4;
      Dit(barre, barre.tabText(i), TailleTexte(barre, barre.tabText(i)).width() + image,
          barre.tabRect(i).width() - 8, "wide");
      if (!barre.rect().contains(barre.tabRect(i).center())) {
        trouvailles_.push_back(NomDe(barre) + " \"" + barre.tabText(i).toStdString() + "\": tab without room");
      }
    }
  }

  void EnTete(const QHeaderView& t) {
    const QAbstractItemModel* modele = t.model();
    if (modele == nullptr || t.orientation() != Qt::Horizontal || !t.isVisibleTo(&fenetre_)) return;
    const int bord = 2 * t.style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, &t);
    for (int i = 0; i < t.count(); ++i) {
      if (t.isSectionHidden(i)) continue;
      const QString texte = modele->headerData(i, Qt::Horizontal).toString();
      Dit(*t.parentWidget(), texte, t.fontMetrics().size(0, texte).width() + bord, t.sectionSize(i), "wide");
    }
  }

  void Combo(const QComboBox& c) {
    QStyleOptionComboBox option;
    option.initFrom(&c);
    option.editable = c.isEditable();
    option.frame = c.hasFrame();
    const QRect place = c.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &c);
    // a combo that the translation fills shows any of its items one day
    const bool tous = c.property("ovelin_origine_elements").isValid();
    for (int i = 0; i < c.count(); ++i) {
      if (!tous && i != c.currentIndex()) continue;
      const int image = c.itemIcon(i).isNull() ? 0 : c.iconSize().width() + 4;
      Dit(c, c.itemText(i), c.fontMetrics().horizontalAdvance(c.itemText(i)) + image, place.width(), "wide");
    }
  }

  void Texte(const QWidget& w) {
    if (w.property("texteLibre").toBool()) return;
    if (const auto* l = qobject_cast<const QLabel*>(&w)) return Etiquette(*l);
    if (const auto* b = qobject_cast<const QAbstractButton*>(&w)) return Bouton(*b);
    if (const auto* t = qobject_cast<const QTabBar*>(&w)) return Onglets(*t);
    if (const auto* h = qobject_cast<const QHeaderView*>(&w)) return EnTete(*h);
    if (const auto* c = qobject_cast<const QComboBox*>(&w)) return Combo(*c);
    if (const auto* g = qobject_cast<const QGroupBox*>(&w)) {
      const int coche = g->isCheckable() ? 20 : 0;
      Dit(w, g->title(), TailleTexte(w, g->title()).width() + coche, w.width() - 8, "wide");
    } else if (const auto* e = qobject_cast<const QLineEdit*>(&w)) {
      const int place = e->contentsRect().width() - e->textMargins().left() - e->textMargins().right() - 4;
      Dit(w, e->placeholderText(), TailleTexte(w, e->placeholderText()).width(), place, "wide");
    } else if (const auto* d = qobject_cast<const QDockWidget*>(&w)) {
      if (d->titleBarWidget() == nullptr) {
        Dit(w, d->windowTitle(), TailleTexte(w, d->windowTitle()).width(), w.width() - 8, "wide");
      }
    } else if (w.inherits("QToolBar") || w.inherits("QMenuBar")) {
      for (const QWidget* suite : w.findChildren<QWidget*>()) {
        if (suite->inherits("QToolBarExtension") && suite->isVisibleTo(&fenetre_)) {
          trouvailles_.push_back(NomDe(w) + ": entries without room");
        }
      }
    }
  }

  // ---- places

  static bool Feuille(const QWidget& w) {
    return qobject_cast<const QAbstractButton*>(&w) != nullptr || qobject_cast<const QComboBox*>(&w) != nullptr ||
           qobject_cast<const QLineEdit*>(&w) != nullptr || qobject_cast<const QAbstractSpinBox*>(&w) != nullptr ||
           qobject_cast<const QAbstractSlider*>(&w) != nullptr || qobject_cast<const QTabBar*>(&w) != nullptr ||
           qobject_cast<const QHeaderView*>(&w) != nullptr || qobject_cast<const QMenuBar*>(&w) != nullptr;
  }

  // Parents whose children the toolkit places itself, on purpose over each other by a pixel or beyond an edge.
  static bool PlaceParLaBoite(const QWidget& parent) {
    return qobject_cast<const QTabWidget*>(&parent) != nullptr ||
           qobject_cast<const QSplitter*>(&parent) != nullptr ||
           qobject_cast<const QAbstractScrollArea*>(&parent) != nullptr ||
           qobject_cast<const QToolBar*>(&parent) != nullptr ||
           parent.objectName() == QLatin1String("qt_scrollarea_viewport");
  }

  void Places(const QWidget& parent, const std::vector<QWidget*>& enfants) {
    if (PlaceParLaBoite(parent)) return;
    for (std::size_t i = 0; i < enfants.size(); ++i) {
      const QWidget& a = *enfants[i];
      if (a.property("placeLibre").toBool()) continue;
      if (!parent.rect().contains(a.geometry())) {
        trouvailles_.push_back(NomDe(a) + " lies outside " + NomDe(parent));
      }
      for (std::size_t k = i + 1; k < enfants.size(); ++k) {
        const QWidget& b = *enfants[k];
        if (b.property("placeLibre").toBool() || !a.geometry().intersects(b.geometry())) continue;
        trouvailles_.push_back(NomDe(a) + " and " + NomDe(b) + " lie over each other");
      }
    }
  }

  // ---- walk

  std::vector<QWidget*> EnfantsVisibles(const QWidget& w) const {
    std::vector<QWidget*> enfants;
    for (QObject* o : w.children()) {
      auto* enfant = qobject_cast<QWidget*>(o);
      if (enfant == nullptr || enfant->isWindow() || !enfant->isVisibleTo(&fenetre_) || enfant->size().isEmpty()) {
        continue;
      }
      enfants.push_back(enfant);
    }
    return enfants;
  }

  void Visite(QWidget& w) {
    Texte(w);
    if (Feuille(w)) return;
    if (auto* onglets = qobject_cast<QTabWidget*>(&w)) return Pages(*onglets);
    if (auto* pile = qobject_cast<QStackedWidget*>(&w)) {
      if (qobject_cast<QTabWidget*>(pile->parentWidget()) == nullptr) return Pages(*pile);
    }
    Enfants(w);
  }

  void Enfants(QWidget& w) {
    std::vector<QWidget*> enfants = EnfantsVisibles(w);
    for (QWidget* enfant : enfants) {
      if (!Interne(*enfant) || qobject_cast<QTabBar*>(enfant) != nullptr || enfant->inherits("QStackedWidget") ||
          enfant->objectName() == QLatin1String("qt_scrollarea_viewport")) {
        Visite(*enfant);
      }
    }
    std::erase_if(enfants, [](const QWidget* e) { return Interne(*e); });
    Places(w, enfants);
  }

  template <class T>
  void Pages(T& pages) {
    const QSignalBlocker silence(&pages);
    const int avant = pages.currentIndex();
    for (int i = 0; i < pages.count(); ++i) {
      pages.setCurrentIndex(i);
      if (pages.currentIndex() != i) continue;
      Etale();
      Enfants(pages);
    }
    pages.setCurrentIndex(avant);
    Etale();
  }

  void Etale() const {
    QApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    for (QWidget* w : fenetre_.findChildren<QWidget*>()) {
      if (w->layout() != nullptr && w->isVisibleTo(&fenetre_)) w->layout()->activate();
    }
  }

  QWidget& fenetre_;
  Trouvailles trouvailles_;
};

}  // namespace

std::vector<std::string> TextesCoupes(QWidget& fenetre) {
  QApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
  if (fenetre.layout() != nullptr) fenetre.layout()->activate();
  return Examen(fenetre).Lance();
}

std::string TextesCoupesEnTexte(QWidget& fenetre) {
  std::string texte;
  for (const std::string& t : TextesCoupes(fenetre)) texte += t + "\n";
  return texte;
}

}  // namespace essai
