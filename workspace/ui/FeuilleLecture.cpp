#include "workspace/ui/FeuilleLecture.h"

#include <QApplication>
#include <QClipboard>
#include <algorithm>

#include "core/Textes.h"
#include "core/ui/Fabrique.h"
#include "core/ui/TraduitFenetre.h"

namespace ovelin {

namespace {

constexpr int LignesMin = 4, LignesMax = 14;
constexpr int ColonnesMin = 36, ColonnesMax = 90;

}  // namespace

FeuilleLecture::FeuilleLecture(const QString& details, QWidget* parent)
    : QFrame(parent, Qt::Popup), texte_(Nomme(new QPlainTextEdit(details, this), "TB_Lecture")) {
  setObjectName(QStringLiteral("Frame_Lecture"));
  setAttribute(Qt::WA_DeleteOnClose);
  setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
  texte_->setReadOnly(true);
  texte_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  texte_->setTabChangesFocus(true);
  texte_->setLineWrapMode(QPlainTextEdit::NoWrap);
  texte_->setAccessibleName(TexteQt(Textes::BulleLecture));
  const QStringList lignes = details.split(QLatin1Char('\n'));
  int large = 0;
  for (const QString& ligne : lignes) large = std::max(large, texte_->fontMetrics().horizontalAdvance(ligne));
  const int chiffre = texte_->fontMetrics().horizontalAdvance(QLatin1Char('0'));
  const int haut = std::clamp(static_cast<int>(lignes.size()) + 1, LignesMin, LignesMax);
  texte_->setMinimumSize(std::clamp(large + 4 * chiffre, ColonnesMin * chiffre, ColonnesMax * chiffre),
                         haut * texte_->fontMetrics().lineSpacing() + 12);
  QPushButton* copie = Bouton("CB_CopieLecture", TexteQt(Textes::CopieLecture), TexteQt(Textes::BulleCopieLecture));
  connect(copie, &QPushButton::clicked, this, [this] {
    QApplication::clipboard()->setText(texte_->toPlainText());
    close();
  });
  QVBoxLayout* colonne = ColonneFenetre(*this);
  colonne->addWidget(texte_, 1);
  colonne->addLayout(RangeeBoutons({copie}));
}

void FeuilleLecture::MontreSur(const QWidget& bouton) {
  adjustSize();
  const QWidget* fenetre = bouton.window();
  const QPoint coin = bouton.mapToGlobal(QPoint(0, 0));
  const QRect cadre(fenetre->mapToGlobal(QPoint(0, 0)), fenetre->size());
  const int x = std::max(cadre.left(), std::min(coin.x(), cadre.right() - width()));
  move(x, std::max(cadre.top(), coin.y() - height()));
  show();
  texte_->setFocus();
}

}  // namespace ovelin
