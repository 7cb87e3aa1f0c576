// A PDF file of pages with given contents, for tests and the fuzz target.
#pragma once

#include <string>
#include <vector>

namespace essai {

// Pages of 200 x 100 points; /F is Helvetica. `contenus`: the drawing operators of each page.
inline std::string FichierPdf(const std::vector<std::string>& contenus) {
  std::vector<std::string> objets{"<</Type/Catalog/Pages 2 0 R>>", ""};
  std::string enfants;
  for (const std::string& contenu : contenus) {
    const std::size_t n = objets.size() + 1;
    enfants += std::to_string(n) + " 0 R ";
    objets.push_back("<</Type/Page/Parent 2 0 R/MediaBox[0 0 200 100]/Contents " + std::to_string(n + 1) +
                     " 0 R/Resources<</Font<</F<</Type/Font/Subtype/Type1/BaseFont/Helvetica>>>>>>>>");
    objets.push_back("<</Length " + std::to_string(contenu.size()) + ">>stream\n" + contenu + "\nendstream");
  }
  objets[1] = "<</Type/Pages/Kids[" + enfants + "]/Count " + std::to_string(contenus.size()) + ">>";
  std::string f = "%PDF-1.4\n";
  std::string table = "xref\n0 " + std::to_string(objets.size() + 1) + "\n0000000000 65535 f \n";
  for (std::size_t i = 0; i < objets.size(); ++i) {
    const std::string place = std::to_string(f.size());
    table += std::string(10 - place.size(), '0') + place + " 00000 n \n";
    f += std::to_string(i + 1) + " 0 obj\n" + objets[i] + "\nendobj\n";
  }
  const std::string debut = std::to_string(f.size());
  return f + table + "trailer<</Size " + std::to_string(objets.size() + 1) + "/Root 1 0 R>>\nstartxref\n" + debut +
         "\n%%EOF\n";
}

}  // namespace essai
