// A HID device that the kernel takes for a real one, with a virtual board inside: where /dev/uhid can be had.
#pragma once

#include <fcntl.h>
#include <linux/uhid.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <memory>
#include <string>
#include <thread>

#include "closed/CarteVirtuelle.h"
#include "closed/ZenikCom.h"

namespace essai {

class AppareilUhid {
 public:
  static constexpr const char* Noeud = "/dev/uhid";
  // Why there can be none on this machine; empty: there can.
  static std::string Raison() {
    const int fd = open(Noeud, O_RDWR | O_CLOEXEC);
    if (fd < 0) return std::string(Noeud) + ": " + std::strerror(errno);
    close(fd);
    return "";
  }

  AppareilUhid(zenikcom::IdentiteUsb identite, std::shared_ptr<zenikcom::CarteVirtuelle> carte)
      : fd_(open(Noeud, O_RDWR | O_CLOEXEC)), carte_(std::move(carte)) {
    Cree(identite);
    fil_ = std::thread([this] { Sert(); });
    // The system makes the node of the device in its own time.
    for (int essai = 0; essai < 250 && !EstLa(identite); ++essai) poll(nullptr, 0, 20);
  }
  ~AppareilUhid() {
    fin_ = true;
    fil_.join();
    Ecrit(UHID_DESTROY, [](uhid_event&) {});
    close(fd_);
  }
  AppareilUhid(const AppareilUhid&) = delete;
  AppareilUhid& operator=(const AppareilUhid&) = delete;

 private:
  static bool EstLa(zenikcom::IdentiteUsb identite) {
    const auto appareils = zenikcom::AppareilsUsb();
    return std::any_of(appareils.begin(), appareils.end(), [&](const zenikcom::AppareilUsb& a) {
      return a.identite == identite && access(a.chemin.c_str(), R_OK | W_OK) == 0;
    });
  }
  template <class Remplit>
  void Ecrit(std::uint32_t type, Remplit remplit) {
    uhid_event e{};
    e.type = type;
    remplit(e);
    [[maybe_unused]] const auto n = write(fd_, &e, sizeof e);
  }
  void Cree(zenikcom::IdentiteUsb identite) {
    // One report without a number each way, 36 bytes of the vendor's own.
    static constexpr std::array<std::uint8_t, 25> Description{0x06, 0x00, 0xFF,        // usage page: the vendor's
                                                              0x09, 0x01,              // usage 1
                                                              0xA1, 0x01,              // collection: application
                                                              0x15, 0x00,              // logical minimum 0
                                                              0x26, 0xFF, 0x00,        // logical maximum 255
                                                              0x75, 0x08,              // 8 bits
                                                              0x95, 0x24,              // 36 of them
                                                              0x09, 0x01, 0x81, 0x02,  // input
                                                              0x09, 0x01, 0x91, 0x02,  // output
                                                              0xC0};
    Ecrit(UHID_CREATE2, [&](uhid_event& e) {
      std::memcpy(e.u.create2.name, "ZENIK", 6);
      e.u.create2.rd_size = static_cast<std::uint16_t>(Description.size());
      std::copy(Description.begin(), Description.end(), e.u.create2.rd_data);
      e.u.create2.bus = 3;  // USB
      e.u.create2.vendor = identite.vendeur;
      e.u.create2.product = identite.produit;
    });
  }
  // What the board answers to each report.
  void Sert() {
    while (!fin_) {
      pollfd attente{fd_, POLLIN, 0};
      if (poll(&attente, 1, 20) <= 0) continue;
      uhid_event e{};
      if (read(fd_, &e, sizeof e) <= 0 || e.type != UHID_OUTPUT) continue;
      zenikcom::TamponOctets t{};
      const std::size_t n = std::min<std::size_t>(e.u.output.size, t.size());
      // With the report's number in front, or without.
      std::copy_n(e.u.output.data, n, t.begin() + (n == t.size() ? 0 : 1));
      carte_->Echange(t);
      Ecrit(UHID_INPUT2, [&t](uhid_event& reponse) {
        reponse.u.input2.size = static_cast<std::uint16_t>(t.size() - 1);
        std::copy(t.begin() + 1, t.end(), reponse.u.input2.data);
      });
    }
  }

  int fd_;
  std::shared_ptr<zenikcom::CarteVirtuelle> carte_;
  std::atomic<bool> fin_{false};
  std::thread fil_;
};

}  // namespace essai
