#include "app/ovelin/MiseAJour.h"

#include <QNetworkInterface>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QUrl>
#include <algorithm>
#include <utility>

#include "core/Types.h"

namespace ovelin {

bool ReseauPresent() {
  const QList<QNetworkInterface> interfaces = QNetworkInterface::allInterfaces();
  return std::any_of(interfaces.begin(), interfaces.end(), [](const QNetworkInterface& i) {
    const auto etat = i.flags();
    return etat.testFlag(QNetworkInterface::IsUp) && etat.testFlag(QNetworkInterface::IsRunning) &&
           !etat.testFlag(QNetworkInterface::IsLoopBack) && !i.addressEntries().isEmpty();
  });
}

MiseAJour::MiseAJour(std::function<bool()> libre, std::function<void(const std::string&)> traite, QObject* parent)
    : QObject(parent), libre_(std::move(libre)), traite_(std::move(traite)) {
  minuterie_.setInterval(1000);
  connect(&minuterie_, &QTimer::timeout, this, &MiseAJour::Livre);
}

void MiseAJour::Demande(const std::string& adresse) {
  const QUrl url(QString::fromStdString(adresse));
  const bool connue = url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
  if (!url.isValid() || !connue || reponse_ != nullptr || attend_) return;
  QNetworkRequest requete(url);
  requete.setHeader(QNetworkRequest::UserAgentHeader, QString::fromLatin1(NomProgramme));
  requete.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
  requete.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
  requete.setRawHeader("Cache-Control", "no-cache");
  requete.setRawHeader("Pragma", "no-cache");
  requete.setTransferTimeout(DelaiReponse);
  reponse_ = reseau_.get(requete);
  reponse_->setReadBufferSize(4 * TailleReponse);
  connect(reponse_, &QNetworkReply::readyRead, this, &MiseAJour::Recoit);
  connect(reponse_, &QNetworkReply::finished, this, &MiseAJour::Termine);
}

// The first bytes are enough: however long the answer goes on, the rest isn't waited for.
void MiseAJour::Recoit() {
  if (reponse_ == nullptr) return;
  texte_ += reponse_->read(TailleReponse - texte_.size());
  if (texte_.size() >= TailleReponse) Termine();
}

void MiseAJour::Termine() {
  if (reponse_ == nullptr) return;
  QNetworkReply* const fini = std::exchange(reponse_, nullptr).data();
  fini->disconnect(this);
  const bool bonne = fini->error() == QNetworkReply::NoError;
  if (bonne) texte_ += fini->read(TailleReponse - texte_.size());
  if (!bonne) texte_.clear();
  fini->abort();
  fini->deleteLater();
  attend_ = true;
  Livre();
}

void MiseAJour::Livre() {
  if (!attend_) return;
  if (libre_ && !libre_()) {
    minuterie_.start();
    return;
  }
  attend_ = false;
  minuterie_.stop();
  if (traite_) traite_(std::exchange(texte_, {}).toStdString());
}

}  // namespace ovelin
