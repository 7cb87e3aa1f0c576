#include "closed/zenikcom/virtual/Carte.h"

#include <algorithm>
#include <span>
#include <utility>

namespace zenikcom {

Carte::Carte(ConditionsCarte conditions)
    : conditions_(std::move(conditions)), travail_(machine_, conditions_.capacite, conditions_.journal) {
  if (!conditions_.horloge) conditions_.rapide = true;
  ns_ = Maintenant();
  travail_.Avance(ns_);
}

Carte::~Carte() { Enregistre(); }

bool Carte::Ouvre() { return rangement_.Ouvre(conditions_.fichier, memoire_); }

bool Carte::Enregistre() {
  if (!change_) return true;
  change_ = false;
  return rangement_.Ecrit(memoire_);
}

std::int64_t Carte::Maintenant() {
  if (!conditions_.rapide) ns_ = std::max(ns_, conditions_.horloge() + decalage_);
  return ns_;
}

void Carte::Rattrape() { travail_.Avance(Maintenant()); }

void Carte::Rapide(bool rapide) {
  Rattrape();
  if (!conditions_.horloge) return;
  // The board's time goes on from where it is, however far it has run ahead of the clock.
  if (conditions_.rapide && !rapide) decalage_ = ns_ - conditions_.horloge();
  conditions_.rapide = rapide;
}

void Carte::Attend(std::int64_t ns) {
  if (conditions_.rapide) {
    ns_ += ns;
  } else if (conditions_.attend) {
    conditions_.attend(ns);
  }
}

bool Carte::Branchee() {
  if (debranchee_) return false;
  if (debrancheeJusque_ == 0) return true;
  // Asked in vain the host tries again after a while: without a clock that while has to pass here.
  if (conditions_.rapide) Attend(DureeMaxi);
  return Maintenant() >= debrancheeJusque_;
}

void Carte::Debranche(bool debranchee) {
  debranchee_ = debranchee;
  if (!debranchee) debrancheeJusque_ = 0;
}

const Faute* Carte::FauteDe(std::int64_t echange) const {
  const auto faute =
      std::find_if(fautes_.begin(), fautes_.end(), [echange](const Faute& f) { return f.echange == echange; });
  return faute == fautes_.end() ? nullptr : &*faute;
}

std::int32_t Carte::Echange(TamponOctets& t) {
  ++echanges_;
  const Faute* faute = FauteDe(echanges_);
  if (faute != nullptr && faute->genre == GenreFaute::Debranche) {
    const double ns = std::clamp(faute->secondes, 0.0, 1e9) * static_cast<double>(NsParSeconde);
    debranchee_ = debranchee_ || !(ns > 0);
    debrancheeJusque_ = Maintenant() + static_cast<std::int64_t>(ns);
  }
  if (!Branchee()) return Absente;
  debrancheeJusque_ = 0;
  Rattrape();
  if (faute == nullptr) {
    Execute(t);
    return Reussi;
  }
  if (faute->genre == GenreFaute::Avant) return EcritureEchouee;
  if (faute->genre == GenreFaute::Refuse) {
    Refuse(t);
    return Reussi;
  }
  TamponOctets reponse = t;
  Execute(reponse);
  if (faute->genre == GenreFaute::Bruit) {
    auto bruit = static_cast<std::uint32_t>(echanges_);
    for (std::uint8_t& octet : t) {
      bruit = bruit * 1'664'525U + 1'013'904'223U;
      octet = static_cast<std::uint8_t>(bruit >> 24U);
    }
    return Reussi;
  }
  if (faute->genre == GenreFaute::Retard) Attend(DureeMaxi);
  return LectureEchouee;
}

void Carte::FinDeCourse(bool enfonce) {
  Rattrape();
  // Only the pressing stops: a new job must be able to leave the switch.
  if (enfonce && !finDeCourse_ && travail_.EnCours()) travail_.Arrete();
  finDeCourse_ = enfonce;
}

void Carte::Place(const Axes3& lieu) {
  Rattrape();
  machine_.Place(lieu);
}

void Carte::Modele(const ModeleMachine& modele) {
  Rattrape();
  machine_.Modele(modele);
}

Axes3 Carte::Lieu() {
  Rattrape();
  return machine_.Lieu();
}

std::vector<Axes3> Carte::Parcours() {
  Rattrape();
  return machine_.Parcours();
}

CompteursCarte Carte::Compteurs() {
  Rattrape();
  CompteursCarte compteurs;
  travail_.Compte(compteurs);
  compteurs.echanges = echanges_;
  compteurs.malFormes = malFormes_;
  return compteurs;
}

namespace {

// The board as the only one behind its link.
class LiaisonCarte final : public Liaison {
 public:
  explicit LiaisonCarte(std::shared_ptr<CarteVirtuelle> carte) : carte_(std::move(carte)) {}
  std::int32_t EstConnectee() override { return carte_->Branchee() ? 1 : Absente; }
  std::int32_t Envoie(TamponOctets& tampon, std::int32_t&) override { return carte_->Echange(tampon); }
  void Ferme() override { carte_->Enregistre(); }

 private:
  std::shared_ptr<CarteVirtuelle> carte_;
};

}  // namespace

std::shared_ptr<CarteVirtuelle> CreeCarteVirtuelle(ConditionsCarte conditions) {
  auto carte = std::make_shared<Carte>(std::move(conditions));
  if (!carte->Ouvre()) return nullptr;
  return carte;
}

std::unique_ptr<Liaison> LiaisonVirtuelle(std::shared_ptr<CarteVirtuelle> carte) {
  return std::make_unique<LiaisonCarte>(std::move(carte));
}

}  // namespace zenikcom
