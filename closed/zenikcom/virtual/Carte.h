// The virtual board: takes the 37 bytes apart, does what they say, writes the answer over them.
#pragma once

#include <vector>

#include "closed/CarteVirtuelle.h"
#include "closed/ZenikCom.h"
#include "closed/zenikcom/virtual/Programmateur.h"
#include "closed/zenikcom/virtual/Rangement.h"
#include "closed/zenikcom/virtual/Travail.h"

namespace zenikcom {

class Carte final : public CarteVirtuelle {
 public:
  explicit Carte(ConditionsCarte conditions);
  ~Carte() override;
  // Reads the file. False: another program holds it.
  bool Ouvre();

  bool Branchee() override;
  std::int32_t Echange(TamponOctets& t) override;

  void Appuie(std::uint8_t touches) override { touches_ = touches; }
  void FinDeCourse(bool enfonce) override;
  void Origine(bool enfonce) override { origine_ = enfonce; }
  void Analogiques(std::uint8_t premiere, std::uint8_t seconde) override { analogiques_ = {premiere, seconde}; }
  void Debranche(bool debranchee) override;
  void Place(const Axes3& lieu) override;
  void Modele(const ModeleMachine& modele) override;
  void Fautes(std::vector<Faute> fautes) override { fautes_ = std::move(fautes); }
  void Rapide(bool rapide) override;

  SortiesCarte Sorties() override { return sorties_; }
  EcranCarte Ecran() override { return ecran_; }
  Axes3 Lieu() override;
  [[nodiscard]] ModeleMachine Modele() const override { return machine_.Modele(); }
  CompteursCarte Compteurs() override;
  std::vector<Axes3> Parcours() override;
  [[nodiscard]] const std::vector<RecordJoue>& Joues() const override { return travail_.Joues(); }
  [[nodiscard]] FichierCarte Fichier() const override { return rangement_.Etat(); }
  bool Enregistre() override;

 private:
  void Rattrape();  // up to now
  [[nodiscard]] std::int64_t Maintenant();
  [[nodiscard]] const Faute* FauteDe(std::int64_t echange) const;
  void Attend(std::int64_t ns);

  void LaisseFiler(const TamponOctets& t);  // as fast as it can: the time for which the host waits
  void Execute(TamponOctets& t);
  void Etat(TamponOctets& t, std::uint8_t octet2) const;
  [[nodiscard]] std::uint8_t EtatOctet12() const;
  void Refuse(TamponOctets& t) const;

  void RecordRecu(TamponOctets& t);
  void Tampon(const TamponOctets& t);
  void Stop(TamponOctets& t);
  void Puissance(TamponOctets& t);
  void Affiche(const TamponOctets& t);
  void Table(TamponOctets& t);
  void Flash(TamponOctets& t);
  void Programmation(TamponOctets& t);
  void RemiseAZero();

  ConditionsCarte conditions_;
  Memoire memoire_;
  bool change_ = false;  // the memory differs from the file
  Rangement rangement_;
  Machine machine_;
  Travail travail_;
  Programmateur programmateur_;
  SortiesCarte sorties_;
  EcranCarte ecran_;
  std::uint8_t touches_ = 0;
  bool finDeCourse_ = false, origine_ = false;
  std::array<std::uint8_t, 2> analogiques_{};
  std::vector<Faute> fautes_;
  bool debranchee_ = false;
  std::int64_t debrancheeJusque_ = 0;  // ns; within the time of the board
  std::int64_t echanges_ = 0, malFormes_ = 0;
  std::int64_t ns_ = 0, decalage_ = 0;  // the board's own time; what it is ahead of the clock
};

}  // namespace zenikcom
