// Random work in the main window: whatever is clicked and typed, the document stays whole.
#include <QApplication>
#include <QMenu>

#include "core/DocumentCourant.h"
#include "tests/ui/principale/Singe.h"

namespace {

using namespace ovelin;
using essai::Singe;

constexpr int PointsMax = 4000;  // above it a fresh sample is opened, so that no action takes long

TEST_F(Singe, RandomWorkLeavesAWholeDocument) {
  SCOPED_TRACE("OVELIN_MONKEY_SEED=" + std::to_string(graine_));
  Charge(Exemple("plaque.dxf"));
  std::vector<std::string> journal;
  for (int i = 0; i < actions_; ++i) {
    const std::string action = Agit();
    essai::Evenements();
    if (QWidget* menu = QApplication::activePopupWidget()) menu->close();
    essai::Evenements();
    journal.push_back(action);
    const std::string faute = Invariants();
    if (!faute.empty()) {
      std::string derniers;
      for (std::size_t k = journal.size() > 12 ? journal.size() - 12 : 0; k < journal.size(); ++k) {
        derniers += journal[k] + "; ";
      }
      FAIL() << faute << " after action " << i << ": " << derniers;
    }
    if (NbPoints > PointsMax || NbPoints < 2) {
      force_ = true;
      Menu("mnu_Ouvrir")->trigger();
      force_ = false;
      essai::Evenements();
    }
    if (!fenetre_->isVisible()) FAIL() << "the window has closed after " << action;
  }
}

}  // namespace
