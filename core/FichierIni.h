// A file of sections and keys, kept line by line as it stands: look-up without regard to case, a key replaced where
// it is, new keys at the end of their section, comments, order and line ends kept. In memory as bytes of the file's
// set; names and values are UTF-8 at this interface.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ovelin {

class FichierIni {
 public:
  FichierIni() = default;
  explicit FichierIni(std::string_view octets);

  [[nodiscard]] std::optional<std::string> Lit(std::string_view section, std::string_view cle) const;
  void Ecrit(std::string_view section, std::string_view cle, std::string_view valeur);
  void Supprime(std::string_view section, std::string_view cle);
  void SupprimeSection(std::string_view section);
  // A key as it stands, and the way back to that from what Ecrit has made of it since: to the byte, and without the
  // header that came with it.
  struct CleTelle {
    bool section = false;  // there is one for it
    bool sansFin = false;  // the file's last line has no end
    std::optional<std::string> ligne;
  };
  [[nodiscard]] CleTelle Releve(std::string_view section, std::string_view cle) const;
  void Remet(std::string_view section, std::string_view cle, const CleTelle& telle);
  [[nodiscard]] std::vector<std::string> Sections() const;
  [[nodiscard]] std::vector<std::pair<std::string, std::string>> Lignes(std::string_view section) const;
  // Line of a key from 1 on, 0 when it isn't there.
  [[nodiscard]] long LigneDe(std::string_view section, std::string_view cle) const;
  [[nodiscard]] std::string Octets() const;

 private:
  struct Ligne {
    std::string texte;  // bytes without the line end
    std::string fin;    // "" of a last line that has none
  };
  std::vector<Ligne> lignes_;
  std::string finLigne_ = "\r\n";  // of new lines
  [[nodiscard]] std::pair<std::size_t, std::size_t> Etendue(std::string_view section) const;
};

}  // namespace ovelin
