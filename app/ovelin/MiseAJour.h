// The request for the version file of the update server. It runs beside the program and delays nothing.
#pragma once

#include <QNetworkAccessManager>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <functional>
#include <string>

class QNetworkReply;

namespace ovelin {

// A network interface that is up, runs and leads out of this machine.
bool ReseauPresent();

class MiseAJour : public QObject {
  Q_OBJECT
 public:
  static constexpr qint64 TailleReponse = 256;  // bytes of the answer that are looked at
  static constexpr int DelaiReponse = 10000;    // ms

  // `traite` gets the answer, once, "" for none, as soon as `libre` allows it.
  MiseAJour(std::function<bool()> libre, std::function<void(const std::string& reponse)> traite,
            QObject* parent = nullptr);

  // Starts the request and returns at once.
  void Demande(const std::string& adresse);
  // There is an answer that has not been handed over.
  [[nodiscard]] bool Attend() const { return attend_; }

 public Q_SLOTS:
  // Hands a waiting answer over when that is allowed; asked again every second until then.
  void Livre();

 private:
  void Recoit();
  void Termine();

  std::function<bool()> libre_;
  std::function<void(const std::string&)> traite_;
  QNetworkAccessManager reseau_;
  QPointer<QNetworkReply> reponse_;
  QByteArray texte_;
  bool attend_ = false;
  QTimer minuterie_;
};

}  // namespace ovelin
