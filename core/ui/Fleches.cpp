#include "core/ui/Fleches.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>

namespace ovelin {

Fleches::Fleches(const QString& nom, QWidget* parent) : QAbstractSlider(parent) {
  setObjectName(nom);
  setOrientation(Qt::Vertical);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
}

QSize Fleches::sizeHint() const { return {20, 24}; }

void Fleches::mousePressEvent(QMouseEvent* e) {
  if (e->button() != Qt::LeftButton) return e->ignore();
  enfoncee_ = e->position().y() < height() / 2.0 ? SliderSingleStepAdd : SliderSingleStepSub;
  triggerAction(enfoncee_);
  setRepeatAction(enfoncee_);
  update();
}

void Fleches::mouseReleaseEvent(QMouseEvent* /*e*/) {
  enfoncee_ = SliderNoAction;
  setRepeatAction(SliderNoAction);
  update();
}

void Fleches::sliderChange(SliderChange change) {
  QAbstractSlider::sliderChange(change);
  update();  // an arrow at its end is grey
}

void Fleches::paintEvent(QPaintEvent* /*e*/) {
  QPainter p(this);
  const int milieu = height() / 2;
  struct Moitie {
    SliderAction action;
    QRect place;
    QStyle::PrimitiveElement fleche;
    bool possible;
  };
  const Moitie moities[] = {
      {SliderSingleStepAdd, QRect(0, 0, width(), milieu), QStyle::PE_IndicatorArrowUp, value() < maximum()},
      {SliderSingleStepSub, QRect(0, milieu, width(), height() - milieu), QStyle::PE_IndicatorArrowDown,
       value() > minimum()}};
  for (const Moitie& m : moities) {
    QStyleOption option;
    option.initFrom(this);
    option.rect = m.place;
    option.state.setFlag(QStyle::State_Raised, enfoncee_ != m.action);
    option.state.setFlag(QStyle::State_Sunken, enfoncee_ == m.action);
    option.state.setFlag(QStyle::State_Enabled, isEnabled() && m.possible);
    style()->drawPrimitive(QStyle::PE_PanelButtonCommand, &option, &p, this);
    const int cote = 7;
    option.rect = QRect(m.place.center().x() - cote / 2, m.place.center().y() - cote / 2, cote, cote);
    style()->drawPrimitive(m.fleche, &option, &p, this);
  }
  if (hasFocus()) {
    QStyleOptionFocusRect cadre;
    cadre.initFrom(this);
    cadre.rect = rect().adjusted(1, 1, -1, -1);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &cadre, &p, this);
  }
}

}  // namespace ovelin
