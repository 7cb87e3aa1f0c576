// What the reading of a drawing left out, in the status bar: in sight, opened, copied; by mouse and keys.
#include <QApplication>
#include <QClipboard>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QToolButton>

#include "tests/ui/principale/FenetrePrincipale.h"

namespace essai {
namespace {

class Lecture : public Principale {
 protected:
  // A line and a text, which is left out.
  static std::string AvecTexte() {
    return EcritFichierEssai(
        "avec.dxf",
        "0\r\nSECTION\r\n2\r\nENTITIES\r\n0\r\nLINE\r\n8\r\n0\r\n10\r\n0\r\n20\r\n0\r\n11\r\n40\r\n"
        "21\r\n30\r\n0\r\nTEXT\r\n8\r\n0\r\n10\r\n1\r\n20\r\n2\r\n40\r\n5\r\n1\r\nA\r\n"
        "0\r\nENDSEC\r\n0\r\nEOF\r\n");
  }
  QToolButton* Bouton() { return C<QToolButton>("SB1_12"); }
  static QWidget* Feuille() {
    for (QWidget* w : QApplication::topLevelWidgets()) {
      if (w->objectName() == "Frame_Lecture" && w->isVisible()) return w;
    }
    return nullptr;
  }
};

TEST_F(Lecture, WhatWasLeftOutStandsInPlainWordsInTheStatusBar) {
  Charge();
  EXPECT_FALSE(Bouton()->isVisible());
  fenetre_->Depose(AvecTexte());
  Evenements();
  ASSERT_TRUE(Bouton()->isVisible());
  EXPECT_EQ(Bouton()->accessibleName(), QStringLiteral("Laissé de côté : texte 1"));
  EXPECT_EQ(C<QLabel>("SB1_5")->text(), "") << "not twice";
  fenetre_->Depose(Exemple("Carre.dxf"));
  Evenements();
  EXPECT_FALSE(Bouton()->isVisible()) << "of another drawing";
}

TEST_F(Lecture, AClickOpensTheDetailsWhichCanBeCopied) {
  Charge();
  fenetre_->Depose(AvecTexte());
  Evenements();
  Clique(*Bouton());
  QWidget* feuille = Feuille();
  ASSERT_NE(feuille, nullptr);
  const QString details = feuille->findChild<QPlainTextEdit*>("TB_Lecture")->toPlainText();
  EXPECT_TRUE(details.startsWith("avec.dxf\n")) << details.toStdString();
  EXPECT_TRUE(details.contains(QStringLiteral("texte (TEXT) : 1, première fois à la ligne 18")))
      << details.toStdString();
  Clique(*feuille->findChild<QPushButton*>("CB_CopieLecture"));
  Evenements();
  EXPECT_EQ(QApplication::clipboard()->text(), details);
  EXPECT_EQ(Feuille(), nullptr) << "it has done its work";
}

TEST_F(Lecture, TheKeysOpenTheDetailsCopyAPartAndCloseThem) {
  Charge();
  fenetre_->Depose(AvecTexte());
  Evenements();
  EXPECT_NE(Bouton()->focusPolicy() & Qt::TabFocus, 0);
  Bouton()->setFocus();
  QTest::keyClick(Bouton(), Qt::Key_Space);
  Evenements();
  QWidget* feuille = Feuille();
  ASSERT_NE(feuille, nullptr);
  auto* texte = feuille->findChild<QPlainTextEdit*>("TB_Lecture");
  EXPECT_TRUE(texte->isReadOnly());
  QTest::keyClick(texte, Qt::Key_Home, Qt::ControlModifier);
  QTest::keyClick(texte, Qt::Key_End, Qt::ShiftModifier);
  QTest::keyClick(texte, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "avec.dxf");
  QTest::keyClick(texte, Qt::Key_Escape);
  Evenements();
  EXPECT_EQ(Feuille(), nullptr);
}

TEST_F(Lecture, TheWordsFollowALanguageThatIsChosen) {
  Charge();
  fenetre_->Depose(AvecTexte());
  Evenements();
  reponses_["F_ParamAppli"] = [] {
    ChoisitLangue("en");
    return true;
  };
  Commande("mnu_ParamAppli");
  EXPECT_EQ(Bouton()->accessibleName(), "Left out: text 1");
}

}  // namespace
}  // namespace essai
