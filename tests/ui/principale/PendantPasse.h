// The main window with a drawing whose tool path is computed beside it. The kernel comes to its end when the test
// says so.
#pragma once

#include <QLineEdit>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QTimer>
#include <QWindow>
#include <atomic>
#include <cmath>
#include <deque>
#include <functional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "base/Arret.h"
#include "core/DocumentCourant.h"
#include "tests/ui/principale/FenetrePrincipale.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/traces/Bibliotheque.h"
#include "workspace/Module_Annulation.h"
#include "workspace/Module_Travail.h"

namespace essai {

class PendantPasse : public Principale {
 protected:
  // A pocket whose tool path is worth a pass, in the window as if it had been opened.
  void GrandePoche() {
    Charge(Exemple("plaque.dxf"));
    std::vector<std::pair<float, float>> xy;
    constexpr int n = 3000;
    for (int i = 0; i <= n; ++i) {
      const double a = 2 * M_PI * (i % n) / n;
      xy.emplace_back(static_cast<float>(100 + 30 * std::cos(a)), static_cast<float>(80 + 30 * std::sin(a)));
    }
    ovelin::TraceInitial.clear();
    ovelin::Sequences.assign(1, {});
    AjouteSequence(" A", xy);
    ovelin::Sequences.back().Poche = ovelin::Vrai;
    ovelin::Sequences.back().Selection = ovelin::Vrai;
    ovelin::NbPoints = static_cast<std::int32_t>(ovelin::TraceInitial.size());
    NoyauQuiAttend();
    ovelin::EncombrementGeneral();
    libre_ = true;
    ovelin::RecalculDecalages();
    ovelin::Svc.Rafraichit();
    Evenements();
    ovelin::RetientTravail();
    libre_ = false;
    finis_ = 0;
    pas_ = ovelin::NumeroInstantane();
    points_ = ovelin::TraceInitial;
    traces_ = ovelin::TraceDecale;
    C<ovelin::ImagePB1>("PB1")->setFocus();
    Evenements();
  }
  // The tool path of a path is the path moved by the distance, once the test says so.
  void NoyauQuiAttend() {
    ovelin::Biblio.DecalSequence = [this](ovelin::Bibliotheque::Points& p, float, float d, std::int32_t) {
      auTravail_ = true;
      while (!libre_ && !base::ArretDemande()) std::this_thread::yield();
      auTravail_ = false;
      if (base::ArretDemande()) return 0;
      ++finis_;
      for (ovelin::PointTrace& q : p) q.X += d;
      return 1;
    };
  }
  // One step in each round of events while it computes; behind the last one the kernel comes to its end.
  void Pendant(std::deque<std::function<void()>> suite) {
    suite_ = std::move(suite);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
      if (!auTravail_ || dedans_) return;
      const QScopedValueRollback<bool> pendant(dedans_, true);
      if (suite_.empty()) {
        libre_ = true;
        timer_.stop();
        return;
      }
      const auto pas = std::move(suite_.front());
      suite_.pop_front();
      pas();
    });
    timer_.start(0);
  }
  void Presse(Qt::Key touche) { QTest::keyClick(C<ovelin::ImagePB1>("PB1"), touche); }
  static void Retape(QLineEdit& champ, const std::string& texte) {
    QTest::keyClick(&champ, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&champ, QString::fromStdString(texte));
    QTest::keyClick(&champ, Qt::Key_Return);
  }
  // As from the screen: through the window.
  void PresseFenetre(const char* nom) {
    auto* controle = C<QWidget>(nom);
    ASSERT_TRUE(controle->isVisible());
    const QPointF ici = controle->mapTo(fenetre_.get(), controle->rect().center());
    const QPointF global = fenetre_->mapToGlobal(ici);
    QMouseEvent appui(QEvent::MouseButtonPress, ici, ici, global, Qt::LeftButton, Qt::LeftButton, {});
    QMouseEvent lache(QEvent::MouseButtonRelease, ici, ici, global, Qt::LeftButton, Qt::NoButton, {});
    QCoreApplication::sendEvent(fenetre_->windowHandle(), &appui);
    QCoreApplication::sendEvent(fenetre_->windowHandle(), &lache);
  }
  std::string Champ(const char* nom) { return C<QLineEdit>(nom)->text().toStdString(); }

  std::atomic<bool> libre_{false};
  std::atomic<bool> auTravail_{false};  // the kernel waits for a word
  std::atomic<int> finis_{0};
  QTimer timer_;
  bool dedans_ = false;
  std::deque<std::function<void()>> suite_;
  int pas_ = 0;
  std::vector<ovelin::PointTrace> points_;
  std::vector<ovelin::SequenceDecalee> traces_;
};

}  // namespace essai
