#include "core/ui/ChampNombre.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyle>
#include <string_view>

#include "core/Nombres.h"
#include "core/Services.h"
#include "core/ui/ServicesQt.h"
#include "core/ui/Theme.h"

namespace ovelin {

namespace {

constexpr int EspaceUnite = 4;  // px between number and unit, and behind the unit

QColor Rouge(const QWidget& w) { return CouleurLisible(QColor(200, 30, 30), w.palette().color(QPalette::Base)); }

// What a press on this widget gives the keyboard to, as the toolkit decides it.
bool PrendClavier(const QWidget* w) {
  for (; w != nullptr; w = w->isWindow() ? nullptr : w->parentWidget()) {
    if (w->isEnabled() && (w->focusPolicy() & Qt::ClickFocus) != 0) return true;
  }
  return false;
}

}  // namespace

QString FiltreTouche(const QString& touche, const QString& texteReste, char marque) {
  const QChar m = QLatin1Char(marque);
  bool aMarque = texteReste.contains(m);
  QString passe;
  for (const QChar c : touche) {
    const char lettre = c.unicode() < 0x80 ? c.toLatin1() : '\0';
    if (TouchesNumeriques.find(lettre) == std::string_view::npos) continue;
    if (lettre != '.' && lettre != ',') {
      passe += c;
    } else {
      if (!aMarque) passe += m;
      aMarque = true;
    }
  }
  return passe;
}

void MontreSeulement(QLineEdit& champ) {
  champ.setReadOnly(true);
  champ.setFrame(false);
  QPalette nue;
  nue.setColor(QPalette::Base, Qt::transparent);
  champ.setPalette(nue);
}

ChampNombre::ChampNombre(const QString& nom, const QString& unite, QWidget* parent)
    : QLineEdit(parent), unite_(unite) {
  setObjectName(nom);
  setAlignment(Qt::AlignRight);
  setInputMethodHints(Qt::ImhFormattedNumbersOnly);
  PlaceUnite();
  connect(this, &QLineEdit::textEdited, this, &ChampNombre::FiltreSaisie);
}

ChampNombre::~ChampNombre() { OteBulle(); }

void ChampNombre::Montre(const std::string& texte) {
  const QString nouveau = QString::fromStdString(texte);
  if (text() != nouveau) {
    setText(nouveau);
  } else {
    OublieFrappe();
  }
  entree_ = texte;
}

// The history of the typing ends with a text that is set, even to itself; place and choice stay as they are.
void ChampNombre::OublieFrappe() {
  if (!isUndoAvailable() && !isRedoAvailable()) return;
  const int debut = selectionStart();
  const int longueur = selectionLength();
  const int place = cursorPosition();
  const QSignalBlocker silence(this);
  setText(text());
  if (debut >= 0) {
    setSelection(debut, longueur);
  } else {
    setCursorPosition(place);
  }
}

std::string ChampNombre::Texte() const { return text().toStdString(); }

void ChampNombre::Restitue() {
  setText(QString::fromStdString(entree_));
  if (hasFocus()) selectAll();
}

void ChampNombre::Refuse(const QString& raison) {
  if (!refuse_) {
    info_ = toolTip();
    description_ = accessibleDescription();
  }
  refuse_ = true;
  setToolTip(raison);
  setAccessibleDescription(raison);
  MontreBulle(raison);
  update();
}

void ChampNombre::Accepte() {
  OteBulle();
  if (!refuse_) return;
  refuse_ = false;
  setToolTip(info_);
  setAccessibleDescription(description_);
  update();
}

// The bubble is a child of the window, above its other children: it ends with the window and never takes the
// keyboard. It lies under the field, or above it where the window ends, and never beyond the window's sides.
void ChampNombre::MontreBulle(const QString& raison) {
  OteBulle();
  if (!isVisible() || raison.isEmpty()) return;
  QWidget* fenetre = window();
  auto* bulle = new QLabel(raison, fenetre);
  bulle->setObjectName(QStringLiteral("qt_bulle"));
  bulle->setTextFormat(Qt::PlainText);
  bulle->setWordWrap(true);
  bulle->setAttribute(Qt::WA_TransparentForMouseEvents);
  bulle->setAutoFillBackground(true);
  bulle->setBackgroundRole(QPalette::ToolTipBase);
  bulle->setForegroundRole(QPalette::ToolTipText);
  bulle->setFrameStyle(QFrame::Box | QFrame::Plain);
  bulle->setMargin(3);
  const int place = std::max(60, fenetre->width() - 8);
  const int voulue = bulle->fontMetrics().horizontalAdvance(raison) + 12;
  const int largeur = std::min({voulue, 260, place});
  const QSize taille(largeur, bulle->heightForWidth(largeur));
  const QPoint sous = mapTo(fenetre, QPoint(0, height() + 2));
  const int x = std::max(4, std::min(sous.x(), fenetre->width() - 4 - taille.width()));
  const bool dessous = sous.y() + taille.height() <= fenetre->height();
  const int y = dessous ? sous.y() : std::max(0, mapTo(fenetre, QPoint(0, -2)).y() - taille.height());
  bulle->setGeometry(QRect(QPoint(x, y), taille));
  bulle->show();
  bulle->raise();
  bulle_ = bulle;
  qApp->installEventFilter(this);
  QAccessibleEvent dit(this, QAccessible::DescriptionChanged);
  QAccessible::updateAccessibility(&dit);
}

void ChampNombre::OteBulle() {
  if (bulle_ == nullptr) return;
  bulle_->hide();
  bulle_->deleteLater();
  bulle_.clear();
  if (!hasFocus()) qApp->removeEventFilter(this);
}

// The field says that it is left, at most once at a time.
void ChampNombre::DitQuitte(bool memeInchange) {
  // While a handler computes, what has been typed since is another entry; everything else is still the first.
  if (dit_ && !isModified()) return;
  const bool change = Texte() != entree_;
  if (!change && !memeInchange) return;
  // A handler may end the field, or end itself for want of memory.
  struct Pendant {
    QPointer<ChampNombre> champ;
    bool avant;
    ~Pendant() {
      if (champ != nullptr) champ->dit_ = avant;
    }
  } const pendant{this, dit_};
  dit_ = true;
  setModified(false);
  Q_EMIT Quitte(change);
  if (pendant.champ == nullptr || isModified()) return;
  entree_ = Texte();
  if (!refuse_) OublieFrappe();
}

// Undo is the field's own as long as it holds a typing that nobody has taken over.
bool ChampNombre::event(QEvent* e) {
  if (e->type() == QEvent::ShortcutOverride && !isUndoAvailable() &&
      static_cast<QKeyEvent*>(e)->matches(QKeySequence::Undo)) {
    e->ignore();
    return true;
  }
  return QLineEdit::event(e);
}

QString ChampNombre::Filtre(const QString& texte, const QString& reste) const {
  QString passe = FiltreTouche(texte, reste, Svc.MarqueDecimale).remove(QLatin1Char('\b'));
  return entier_ ? passe.remove(QLatin1Char(Svc.MarqueDecimale)) : passe;
}

// A text that came in as a whole. A number written with an exponent is taken by its value: by its digits alone
// "1e3" would become 13.
void ChampNombre::Colle(const QString& texte) {
  QString net = texte;
  if (net.contains(QLatin1Char('e'), Qt::CaseInsensitive)) {
    if (const auto v = NombreDuTexte(net.toStdString())) net = QString::fromStdString(TexteNombre(*v));
  }
  QString reste = text();
  if (hasSelectedText()) reste.remove(selectionStart(), selectedText().size());
  insert(Filtre(net, reste));
}

// What came another way than by keys (dropped, pasted by the menu, by an input method).
void ChampNombre::FiltreSaisie(const QString& texte) {
  Accepte();
  const QString net = Filtre(texte, {});
  if (net == texte) return;
  const auto place = cursorPosition() - (texte.size() - net.size());
  setText(net);
  setCursorPosition(static_cast<int>(std::max<qsizetype>(0, place)));
}

void ChampNombre::keyPressEvent(QKeyEvent* e) {
  if (isReadOnly()) return QLineEdit::keyPressEvent(e);
  if (e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter) {
    // An entry that changes something is taken over and goes no further: only an Enter more reaches the default
    // button of a dialog.
    const bool change = Texte() != entree_;
    const QPointer<ChampNombre> moi(this);
    Accepte();
    DitQuitte(true);
    if (moi == nullptr) return;
    Q_EMIT Entree();
    if (moi == nullptr) return;
    if (!change && !refuse_) return e->ignore();
    if (!isModified()) selectAll();
    return e->accept();
  }
  if (e->key() == Qt::Key_Escape) {
    const bool change = Texte() != entree_;
    Accepte();
    if (!change) return e->ignore();
    Restitue();
    return e->accept();
  }
  Accepte();
  if (e->matches(QKeySequence::Paste)) {
    Colle(QApplication::clipboard()->text());
    return e->accept();
  }
  const QString touche = e->text();
  const bool commande = (e->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
  if (touche.isEmpty() || !touche.at(0).isPrint() || commande) return QLineEdit::keyPressEvent(e);
  QString reste = text();
  if (hasSelectedText()) reste.remove(selectionStart(), selectedText().size());
  const QString passe = Filtre(touche, reste);
  if (!passe.isEmpty()) insert(passe);
  e->accept();
}

// While the field has the keyboard: a press on a control that doesn't take it, or a shortcut, takes the entry over
// first. While a bubble stands: the next key or press takes it away.
bool ChampNombre::eventFilter(QObject* objet, QEvent* e) {
  const bool presse = e->type() == QEvent::MouseButtonPress || e->type() == QEvent::MouseButtonDblClick;
  if (presse || e->type() == QEvent::Shortcut || e->type() == QEvent::KeyPress) {
    const auto* w = qobject_cast<QWidget*>(objet);
    const QPointer<ChampNombre> moi(this);
    if (hasFocus() && ((presse && w != nullptr && w != this && w->window() == window() && !PrendClavier(w)) ||
                       e->type() == QEvent::Shortcut)) {
      DitQuitte(false);
    } else if (w != nullptr && bulle_ != nullptr && !dit_) {
      OteBulle();
    }
    if (moi == nullptr) return false;
  }
  return QLineEdit::eventFilter(objet, e);
}

void ChampNombre::focusInEvent(QFocusEvent* e) {
  // Back from a menu or from another window: still the same entry.
  if (e->reason() != Qt::PopupFocusReason && e->reason() != Qt::ActiveWindowFocusReason) entree_ = Texte();
  QLineEdit::focusInEvent(e);
  qApp->installEventFilter(this);
}

void ChampNombre::focusOutEvent(QFocusEvent* e) {
  QLineEdit::focusOutEvent(e);
  if (bulle_ == nullptr) qApp->removeEventFilter(this);
  // The window goes, or is being destroyed and its handlers with it: the entry goes with it.
  if (window()->isHidden()) return;
  const bool provisoire = e->reason() == Qt::PopupFocusReason || e->reason() == Qt::ActiveWindowFocusReason;
  const QWidget* menu = QApplication::activePopupWidget();
  if (provisoire && menu != nullptr && menu->parentWidget() == this) return;
  // Another window comes to the front while something long runs: the entry waits until the field is really left.
  if (provisoire && PasseEnCours()) return;
  DitQuitte(!provisoire);
}

void ChampNombre::hideEvent(QHideEvent* e) {
  OteBulle();
  QLineEdit::hideEvent(e);
}

void ChampNombre::changeEvent(QEvent* e) {
  QLineEdit::changeEvent(e);
  if (e->type() == QEvent::FontChange || e->type() == QEvent::StyleChange) PlaceUnite();
}

void ChampNombre::PlaceUnite() {
  if (unite_.isEmpty()) return;
  setTextMargins(0, 0, fontMetrics().horizontalAdvance(unite_) + 2 * EspaceUnite - 2, 0);
}

void ChampNombre::paintEvent(QPaintEvent* e) {
  QLineEdit::paintEvent(e);
  QPainter p(this);
  if (!unite_.isEmpty()) {
    QColor couleur = palette().color(QPalette::Text);
    couleur.setAlphaF(isEnabled() ? 0.65F : 1.0F);
    p.setPen(couleur);
    p.drawText(rect().adjusted(0, 0, -EspaceUnite - 2, 0), Qt::AlignRight | Qt::AlignVCenter, unite_);
  }
  if (refuse_) {
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(Rouge(*this), 2));
    p.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 2, 2);
  }
}

}  // namespace ovelin
