#include "closed/ZenikCom.h"

namespace zenikcom {

namespace {

class SansCarte final : public Liaison {
 public:
  std::int32_t EstConnectee() override { return Absente; }
  std::int32_t Envoie(TamponOctets&, std::int32_t&) override { return Absente; }
  void Ferme() override {}
};

}  // namespace

std::unique_ptr<Liaison> LiaisonAbsente() { return std::make_unique<SansCarte>(); }

}  // namespace zenikcom
