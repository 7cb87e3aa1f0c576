// How the main window looks: every text whole in every language, no scroll bar at the usual size, a name on every
// control, a tab order that follows the eye.
#include <QAbstractButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabBar>
#include <set>

#include "core/ReglagesCourants.h"
#include "core/Traduction.h"
#include "tests/ui/principale/FenetrePrincipale.h"

namespace {

using namespace ovelin;

class Aspect : public essai::Principale {
 protected:
  void ChargeEn(const std::string& langue) {
    Regl.Langue = langue;
    OublieTraductions();
    Charge();
    essai::AttendFichier("mnu_Ouvrir", Exemple("plaque-poches.OVL"));
    Commande("mnu_Ouvrir");
    Regl.Langue = langue;
    fenetre_->resize(1280, 800);
    essai::Evenements();
  }
  void Page(int page) {
    C<QTabBar>("Option1")->setCurrentIndex(page);
    essai::Evenements();
  }
};

TEST_F(Aspect, NoTextIsCutInAnyLanguage) {
  for (const LangueConnue& langue : Langues()) {
    SCOPED_TRACE(langue.code);
    ChargeEn(langue.code);
    for (int page = 0; page < 3; ++page) {
      SCOPED_TRACE(page);
      Page(page);
      EXPECT_EQ(essai::TextesCoupesEnTexte(*fenetre_), "");
    }
    fenetre_.reset();
  }
}

TEST_F(Aspect, NoPageNeedsAScrollBarAt1280By800) {
  for (const LangueConnue& langue : Langues()) {
    SCOPED_TRACE(langue.code);
    ChargeEn(langue.code);
    for (int page = 0; page < 3; ++page) {
      SCOPED_TRACE(page);
      Page(page);
      for (const QScrollArea* zone : C<QFrame>("Frame_Sequence")->findChildren<QScrollArea*>()) {
        EXPECT_FALSE(zone->isVisible() && zone->verticalScrollBar()->isVisible());
      }
    }
    fenetre_.reset();
  }
}

TEST_F(Aspect, EveryControlThatTakesTheKeyboardHasAName) {
  ChargeEn("fr");
  for (int page = 0; page < 3; ++page) {
    Page(page);
    for (const QWidget* w : fenetre_->findChildren<QWidget*>()) {
      if (!w->isVisible() || w->focusPolicy() == Qt::NoFocus || w->objectName().startsWith("qt_")) continue;
      if (w->objectName().isEmpty()) continue;
      const auto* bouton = qobject_cast<const QAbstractButton*>(w);
      const bool nomme = !w->accessibleName().isEmpty() || (bouton != nullptr && !bouton->text().isEmpty());
      EXPECT_TRUE(nomme) << w->objectName().toStdString();
    }
  }
}

TEST_F(Aspect, EveryFieldAndButtonOfThePagesHasATip) {
  ChargeEn("fr");
  for (int page = 0; page < 3; ++page) {
    Page(page);
    for (const QWidget* w : C<QFrame>("Frame_Sequence")->findChildren<QWidget*>()) {
      if (!w->isVisible() || w->focusPolicy() == Qt::NoFocus || w->objectName().isEmpty()) continue;
      if (w->objectName().startsWith("qt_") || w->objectName() == "Option1") continue;
      EXPECT_FALSE(w->toolTip().isEmpty()) << w->objectName().toStdString();
    }
  }
}

TEST_F(Aspect, EveryButtonOfTheToolbarHasAPictureAndATip) {
  ChargeEn("fr");
  for (const QAction* bouton : C<QToolBar>("TB1")->actions()) {
    if (bouton->isSeparator() || bouton->objectName().isEmpty()) continue;
    EXPECT_FALSE(bouton->icon().isNull()) << bouton->objectName().toStdString();
    EXPECT_FALSE(bouton->toolTip().isEmpty()) << bouton->objectName().toStdString();
  }
}

// Within a page the keyboard goes from top to bottom, and from left to right where groups stand side by side.
TEST_F(Aspect, TheTabOrderFollowsTheEye) {
  ChargeEn("fr");
  for (int page = 0; page < 3; ++page) {
    SCOPED_TRACE(page);
    Page(page);
    const QWidget* zone = nullptr;
    for (const QScrollArea* z : C<QFrame>("Frame_Sequence")->findChildren<QScrollArea*>()) {
      if (z->isVisible()) zone = z->widget();
    }
    ASSERT_NE(zone, nullptr);
    QRect avant;
    const QWidget* w = fenetre_.get();
    do {
      w = w->nextInFocusChain();
      if (!zone->isAncestorOf(w) || !w->isVisible() || !w->isEnabled()) continue;
      if ((w->focusPolicy() & Qt::TabFocus) == 0) continue;
      const QRect place(w->mapTo(zone, QPoint()), w->size());
      if (!avant.isNull()) {
        const bool apres = place.center().y() > avant.top() || place.left() >= avant.right();
        EXPECT_TRUE(apres) << w->objectName().toStdString() << " stands before the control before it";
      }
      avant = place;
    } while (w != fenetre_.get());
  }
}

TEST_F(Aspect, AMenusCommandsShowTheirKeys) {
  ChargeEn("fr");
  for (const char* nom : {"mnu_Ouvrir", "mnu_Save", "mnu_Undo", "mnu_Fraisage", "mnu_Zoom1", "mnu_Lever"}) {
    EXPECT_FALSE(Menu(nom)->shortcut().isEmpty()) << nom;
  }
}

TEST_F(Aspect, NoTwoCommandsShareAKey) {
  ChargeEn("fr");
  std::set<QString> touches;
  for (const QAction* action : fenetre_->findChildren<QAction*>()) {
    if (action->shortcut().isEmpty()) continue;
    EXPECT_TRUE(touches.insert(action->shortcut().toString()).second) << action->objectName().toStdString();
  }
}

}  // namespace
