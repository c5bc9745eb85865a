#include "desktop/windows/toolkit_words.h"

#include <gtest/gtest.h>

#include <QtWidgets>

#include "desktop/windows/box_hand.h"
#include "i18n/languages.h"

namespace marlex {
namespace {

/// The texts of the menu that a right click on a text field opens, without their keys.
QStringList EditingMenu() {
  QLineEdit field;
  const std::unique_ptr<QMenu> menu(field.createStandardContextMenu());
  QStringList texts;
  for (const QAction* action : menu->actions())
    texts << action->text().section('\t', 0, 0).remove('&');
  texts.removeAll("");
  return texts;
}

TEST(ToolkitWords, TheMenuOfATextFieldFollowsTheLanguage) {
  const QStringList english = EditingMenu();
  ASSERT_EQ(english.front(), "Undo");
  std::string locale = "en";
  const ToolkitWords words([&locale] { return locale; });
  EXPECT_EQ(EditingMenu(), english);
  const std::pair<const char*, QString> undo[] = {{"de", "R\u00FCckg\u00E4ngig"},
                                                  {"it", "Annulla"},
                                                  {"en", "Undo"},
                                                  {"fr", "Annuler"},
                                                  {"xx", "Undo"}};
  for (const auto& [language, word] : undo) {
    locale = language;
    EXPECT_EQ(EditingMenu().front().toStdString(), word.toStdString());
  }
}

/// What the toolkit's own translation says for its "Computer".
QString ComputerIn(const QString& locale) {
  QTranslator all;
  if (!all.load("qtbase_" + locale, ToolkitWords::InstalledFolder())) return "Computer";
  const QString word = all.translate("QFileSystemModel", "Computer");
  return word.isEmpty() ? "Computer" : word;
}

TEST(ToolkitWords, AreTranslatedWhereTheToolkitHasTheLanguage) {
  const QStringList english = EditingMenu();
  const QString words = ToolkitWords::InstalledFolder() + "/qtbase_%1.qm";
  for (const Language& language : kLanguageTable) {
    const ToolkitWords installed([&language] { return LocaleOf(language.LanguageBase); });
    const bool isEnglish = std::string(language.Name) == "English";
    const bool isKnown = !isEnglish && QFile::exists(words.arg(language.Locale));
    EXPECT_EQ(EditingMenu() != english, isKnown) << language.Name;
    EXPECT_EQ(QFileSystemModel().myComputer().toString(), ComputerIn(language.Locale))
        << language.Name;
  }
}

TEST(ToolkitWords, AShortcutIsNamedAsOnTheKeyboardOfTheLanguage) {
  std::string locale = "en";
  const ToolkitWords words([&locale] { return locale; });
  const QKeySequence open(QKeySequence("Ctrl+O", QKeySequence::PortableText));
  EXPECT_EQ(open.toString(QKeySequence::NativeText), "Ctrl+O");
  locale = "de";
  EXPECT_EQ(open.toString(QKeySequence::NativeText), "Strg+O");
  EXPECT_EQ(QKeySequence("Ctrl+O"), open) << "a layout still finds its own spelling";
}

TEST(ToolkitWords, StayEnglishWithoutTranslations) {
  const QStringList english = EditingMenu();
  std::string locale = "de";
  const QTemporaryDir empty;
  const ToolkitWords words([&locale] { return locale; }, empty.path());
  EXPECT_EQ(EditingMenu(), english);
}

TEST(ToolkitWords, MirrorNoWindowAndNameNoButton) {
  const ToolkitWords words([] { return "he"; });
  QApplication::processEvents();
  EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::LeftToRight);
  QWidget window;
  EXPECT_EQ(window.layoutDirection(), Qt::LeftToRight);
  QDialogButtonBox buttons(QDialogButtonBox::Cancel);
  EXPECT_EQ(buttons.button(QDialogButtonBox::Cancel)->text(), "Cancel");
}

/// What the labels and buttons of the file dialog say.
QStringList TextsOfTheFileDialog(const Folder& folder) {
  QtEventLoop loop;
  EnglishBoxes dialogs(loop);
  QStringList texts;
  WhenOpen<QFileDialog>([&texts](QFileDialog& dialog) {
    for (const QLabel* label : dialog.findChildren<QLabel*>()) texts << label->text();
    for (const QAbstractButton* button : dialog.findChildren<QAbstractButton*>())
      texts << button->text() << button->toolTip() << button->accessibleName();
    dialog.close();
  });
  Chosen(loop, dialogs, folder.Asked(true));
  return texts;
}

TEST(ToolkitWords, TheFileDialogKeepsTheProgramsTexts) {
  const Folder folder;
  const QStringList texts = TextsOfTheFileDialog(folder);
  ASSERT_TRUE(texts.contains("File name:"));
  const ToolkitWords words([] { return "de"; });
  EXPECT_EQ(TextsOfTheFileDialog(folder), texts);
  EXPECT_EQ(QFileDialog::tr("Recent Places"), "Zuletzt besucht");
}

}  // namespace
}  // namespace marlex
