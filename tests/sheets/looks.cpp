#include "sheets/looks.h"

#include "sheets/dark_desktop.h"
#include "sheets/scenes.h"

namespace marlex {
namespace {

Sheet Painted(Painter paint, const char* language) {
  Sheet sheet;
  paint(language, sheet);
  return sheet;
}

}  // namespace

void PaintInEveryLanguage(Painter paint, const QString& folder) {
  for (const Language& language : PaintedLanguages())
    Painted(paint, language.Name).Save(folder + "/" + language.Name);
}

void PaintInTheDark(Painter paint, const QString& folder) {
  const DarkDesktop dark;
  const Sheet sheet = Painted(paint, "English");
  sheet.ExpectDark();
  sheet.Save(folder + "/dark/English");
}

}  // namespace marlex
