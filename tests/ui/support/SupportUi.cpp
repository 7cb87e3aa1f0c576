#include "tests/ui/support/SupportUi.h"

#include <QPalette>
#include <QStyle>
#include <QStyleFactory>

#include "core/ReglagesCourants.h"
#include "core/Traduction.h"

namespace essai {

void Evenements() {
  for (int i = 0; i < 3; ++i) QApplication::processEvents();
}

void Montre(QWidget& fenetre, int largeur, int hauteur) {
  if (largeur > 0) fenetre.resize(largeur, hauteur);
  fenetre.show();
  QApplication::setActiveWindow(&fenetre);
  fenetre.activateWindow();
  Evenements();
}

void Tape(QWidget& champ, const std::string& texte, Sortie sortie) {
  champ.setFocus(Qt::TabFocusReason);
  Evenements();
  QTest::keyClick(&champ, Qt::Key_A, Qt::ControlModifier);
  if (texte.empty()) QTest::keyClick(&champ, Qt::Key_Delete);
  QTest::keyClicks(&champ, QString::fromStdString(texte));
  QTest::keyClick(&champ, sortie == Sortie::Tab ? Qt::Key_Tab : Qt::Key_Return);
  Evenements();
}

void Clique(QWidget& controle, Qt::MouseButton bouton, Qt::KeyboardModifiers touches) {
  QTest::mouseClick(&controle, bouton, touches, controle.rect().center());
  Evenements();
}

void ThemeSombreEssai(bool sombre) {
  QPalette p = QApplication::style()->standardPalette();
  if (sombre) {
    const QColor fond(45, 45, 48);
    p = QPalette(fond, fond);  // lights and shadows follow
    const QColor base(30, 30, 30), texte(230, 230, 230), gris(130, 130, 130);
    for (const auto role : {QPalette::Window, QPalette::Button}) p.setColor(role, fond);
    for (const auto role : {QPalette::Base, QPalette::AlternateBase, QPalette::ToolTipBase}) p.setColor(role, base);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
      p.setColor(role, texte);
      p.setColor(QPalette::Disabled, role, gris);
    }
    p.setColor(QPalette::PlaceholderText, gris);
    p.setColor(QPalette::Highlight, QColor(42, 110, 180));
    p.setColor(QPalette::HighlightedText, texte);
  }
  QApplication::setPalette(p);
}

void ChoisitLangue(const std::string& code) {
  ovelin::Regl.Langue = code;
  ovelin::OublieTraductions();
}

const std::vector<std::string>& LanguesDuProduit() {
  static const std::vector<std::string> langues = [] {
    std::vector<std::string> codes;
    for (const ovelin::LangueConnue& l : ovelin::Langues()) codes.emplace_back(l.code);
    return codes;
  }();
  return langues;
}

void Capture(QWidget& fenetre, const std::string& nom) {
  const QString dossier = qEnvironmentVariable("OVELIN_CAPTURES");
  if (dossier.isEmpty()) return;
  fenetre.grab().save(dossier + QLatin1Char('/') + QString::fromStdString(nom) + QStringLiteral(".png"));
}

}  // namespace essai
