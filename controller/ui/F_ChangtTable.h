// Which table of a full board makes room: a button a table, each writes the table in force over its own.
#pragma once

#include <QDialog>
#include <array>
#include <optional>

#include "controller/ChangtTable.h"
#include "core/ui/Fabrique.h"

namespace ovelin {

class F_ChangtTable : public QDialog {
  Q_OBJECT
 public:
  explicit F_ChangtTable(QWidget* parent = nullptr);

  // The captions are the names that the board has now.
  void Form_Load();
  // The table written over last. Whatever closes the window accepts it then, and rejects it where none was.
  [[nodiscard]] int Choix() const { return remplacee_.value_or(0); }

  void reject() override;

 private:
  void Construit();
  void CB_Table_Click(std::uint8_t table);

  std::array<QPushButton*, TablesOffertes> CB_Table_{};
  QPushButton* Btn_Fermer_ = nullptr;
  std::optional<int> remplacee_;
};

}  // namespace ovelin
