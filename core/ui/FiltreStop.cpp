#include "core/ui/FiltreStop.h"

#include <QApplication>
#include <QKeyEvent>

#include "core/RunCourant.h"

namespace ovelin {

namespace {

// White on a red that stands out from both themes.
constexpr const char* Rouge =
    "QPushButton { background: #c01818; color: white; font-weight: bold; border: 1px solid #801010;"
    " border-radius: 3px; padding: 2px 14px; }"
    "QPushButton:pressed { background: #801010; }";

bool EstBouton(const QObject& objet) { return qobject_cast<const BoutonStop*>(&objet) != nullptr; }

bool EstEchappe(const QEvent& e) { return static_cast<const QKeyEvent&>(e).key() == Qt::Key_Escape; }

void DemandeStop(bool aussitot) {
  StopDemande = Vrai;
  if (aussitot) ArretRampe = Faux;
}

}  // namespace

BoutonStop::BoutonStop(QWidget* parent) : QPushButton(QStringLiteral("STOP"), parent) {
  setObjectName(QStringLiteral("Btn_Stop"));
  setToolTip(QStringLiteral("Arrêter la machine (Échap)"));
  setAccessibleName(text());
  setFocusPolicy(Qt::NoFocus);
  setAutoDefault(false);
  setStyleSheet(QString::fromLatin1(Rouge));
  connect(this, &QPushButton::pressed, this, [] { DemandeStop(false); });
}

bool EstUnArret(const QObject& objet, const QEvent& e) {
  if (!OperationCarte) return false;
  switch (e.type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
      return EstEchappe(e);
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
      return EstBouton(objet);
    default:
      return false;
  }
}

FiltreStop::FiltreStop(BoutonStop& bouton) : bouton_(bouton) { qApp->installEventFilter(this); }

FiltreStop::~FiltreStop() { delete dessus_; }

bool FiltreStop::eventFilter(QObject* objet, QEvent* e) {
  const QEvent::Type type = e->type();
  if (objet->isWidgetType() && (type == QEvent::Show || type == QEvent::Hide)) {
    auto* quoi = static_cast<QWidget*>(objet);
    if (quoi == &bouton_ || (quoi->isWindow() && quoi->isModal())) Prevoit();
  } else if (objet == bouton_.window() && (type == QEvent::Move || type == QEvent::Resize)) {
    Prevoit();
  }
  if (!objet->isWidgetType() || !EstUnArret(*objet, *e)) return false;
  if (e->type() == QEvent::MouseButtonPress || e->type() == QEvent::MouseButtonDblClick) DemandeStop(false);
  if (e->type() != QEvent::KeyPress && e->type() != QEvent::ShortcutOverride) return false;
  DemandeStop(true);
  return e->type() == QEvent::KeyPress && QApplication::activeModalWidget() == nullptr;
}

// Once the window that opens or closes is done with it.
void FiltreStop::Prevoit() {
  if (OperationCarte || dessus_ != nullptr)
    QMetaObject::invokeMethod(this, &FiltreStop::Couvre, Qt::QueuedConnection);
}

// A window of its own whose owner is the modal one: that one does not block it.
void FiltreStop::Couvre() {
  QWidget* modale = QApplication::activeModalWidget();
  if (modale == nullptr || !bouton_.isVisible()) {
    delete dessus_;
    return;
  }
  if (dessus_ == nullptr || dessus_->parentWidget() != modale) {
    delete dessus_;
    dessus_ = new BoutonStop(modale);
    dessus_->setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
    dessus_->setAttribute(Qt::WA_ShowWithoutActivating);
    dessus_->setText(bouton_.text());
    dessus_->setToolTip(bouton_.toolTip());
    dessus_->setFont(bouton_.font());
  }
  dessus_->setGeometry(QRect(bouton_.mapToGlobal(QPoint(0, 0)), bouton_.size()));
  dessus_->show();
}

}  // namespace ovelin
