// Whether a job runs on the machine, for windows that show what is not allowed meanwhile.
#pragma once

#include <QObject>

namespace ovelin {

class AvisRun : public QObject {
  Q_OBJECT
 public:
  static AvisRun& Unique();
  [[nodiscard]] bool EnCours() const { return enCours_; }
  void Note(bool enCours);

 Q_SIGNALS:
  void Change(bool enCours);

 private:
  AvisRun() = default;
  bool enCours_ = false;
};

}  // namespace ovelin
