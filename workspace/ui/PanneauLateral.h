// The side of the main window: a switch between the two trees above, the three pages of Frame_Sequence below.
#pragma once

#include <QFrame>
#include <QSplitter>
#include <QStackedWidget>
#include <QTabBar>
#include <array>
#include <optional>

#include "workspace/Module_Panneau.h"
#include "workspace/ui/ArbreDocument.h"
#include "workspace/ui/PageFraisage.h"
#include "workspace/ui/PagePoints.h"
#include "workspace/ui/PageSequences.h"

namespace ovelin {

enum class PageSequence { Points = 0, Fraisage = 1, Ordre = 2 };

class PanneauLateral : public QSplitter {
  Q_OBJECT
 public:
  explicit PanneauLateral(QWidget* parent = nullptr);

  [[nodiscard]] ArbreDocument* TreeView1() const { return arbres_[0]; }
  [[nodiscard]] ArbreDocument* TreeView2() const { return arbres_[1]; }
  [[nodiscard]] PagePoints* Points() const { return points_; }
  [[nodiscard]] PageFraisage* Fraisage() const { return fraisage_; }
  [[nodiscard]] PageSequences* SequencesPage() const { return sequences_; }

  void Traduit();                   // its texts in the language in force
  void Option1(PageSequence page);  // shows that page
  void Couleurs();                  // Option_DI takes the colours of the two traces
  void RemplitArbres();
  // A job runs on the machine: the pages change the drawing and are disabled; the trees, which select, stay.
  void EnRun(bool enRun);
  // The panel from the document; the trees follow the selection. What has been typed as a displacement stays as
  // long as the same paths are selected.
  void InitSeq();
  // The same where a change was taken back: the trees have not followed it, and the points that are chosen in them
  // stay chosen.
  void Retrouve();
  // Another drawing, or another state of it: the displacement counts from 0 again at the next InitSeq.
  void OublieDeplacement() { selection_.clear(); }

 Q_SIGNALS:
  void Clic(const ovelin::ResultatClic& resultat);
  void MenuArbre(const QPoint& ecran);

 protected:
  void changeEvent(QEvent* e) override;
  void resizeEvent(QResizeEvent* e) override;
  // While an operation of the board runs the pages take neither press nor key.
  bool eventFilter(QObject* objet, QEvent* e) override;

 private:
  [[nodiscard]] std::array<QWidget*, 3> Pages() const;
  QWidget* HautArbres();
  QWidget* BasPages();
  void ClicArbre(const ResultatClic& resultat);
  void SuitDocument(bool arbres);
  void Repartit();

  std::array<ArbreDocument*, 2> arbres_{};
  PagePoints* points_ = nullptr;
  PageFraisage* fraisage_ = nullptr;
  PageSequences* sequences_ = nullptr;
  QTabBar* choixArbre_ = nullptr;
  QTabBar* choixPage_ = nullptr;
  QStackedWidget* pileArbres_ = nullptr;
  QStackedWidget* pilePages_ = nullptr;
  bool regle_ = false;            // the user has moved the line between trees and pages
  std::vector<Code2> selection_;  // paths that the panel shows
  std::optional<Code2> place_;    // path of the point that is being moved
};

}  // namespace ovelin
