// What every implementation of `Dialogs` promises.

#include <gtest/gtest.h>

#include "contracts/both_pcs.h"
#include "desktop/await.h"
#include "desktop/windows/box_hand.h"
#include "simulation/simulated_pc.h"

namespace marlex {
namespace {

/// The dialogs of one of the PCs, with an operator who answers when the test says so.
class DialogsBench {
 public:
  virtual ~DialogsBench() = default;

  virtual Dialogs& Boxes() = 0;
  virtual EventLoop& Loop() = 0;

  /// Number of message boxes that are open.
  virtual int OpenBoxes() = 0;
  virtual bool FileDialogIsOpen() = 0;

  /// Presses OK in the topmost message box.
  virtual void PressOk() = 0;

  /// Answers the open file dialog with an existing file, whose path is returned, or cancels it.
  virtual std::string ChooseFile() = 0;
  virtual void CancelFile() = 0;

  /// Delivers events until `done` holds; false when it does not hold in time.
  virtual bool Await(const std::function<bool()>& done) = 0;
};

class SimulatedDialogsBench : public DialogsBench {
 public:
  SimulatedDialogsBench() { Pc.Dialogs.AnswerAfterMs = SimulatedDialogs::kNever; }

  Dialogs& Boxes() override { return Pc.Dialogs; }
  EventLoop& Loop() override { return Pc.Loop; }

  int OpenBoxes() override {
    return Pc.Dialogs.OpenBoxCount() - static_cast<int>(FileDialogIsOpen());
  }
  bool FileDialogIsOpen() override { return Pc.Dialogs.FileDialogIsOpen(); }

  void PressOk() override { Pc.Dialogs.Answer(); }
  std::string ChooseFile() override {
    Pc.Dialogs.OpenResults.push_back("/music/a.sch");
    Pc.Dialogs.Answer();
    return "/music/a.sch";
  }
  void CancelFile() override { Pc.Dialogs.Answer(); }

  bool Await(const std::function<bool()>& done) override {
    return Pc.Loop.RunUntil(done, kLimitMs);
  }

 private:
  static constexpr int kLimitMs = 30'000;

  SimulatedPc Pc;
};

class RealDialogsBench : public DialogsBench {
 public:
  ~RealDialogsBench() override {
    for (QDialog* dialog : OpenDialogs<QDialog>()) dialog->close();
  }

  Dialogs& Boxes() override { return TheBoxes; }
  EventLoop& Loop() override { return TheLoop; }

  int OpenBoxes() override { return static_cast<int>(OpenDialogs<QMessageBox>().size()); }
  bool FileDialogIsOpen() override { return !OpenDialogs<QFileDialog>().isEmpty(); }

  void PressOk() override {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box) box = OpenDialogs<QMessageBox>().front();
    box->button(QMessageBox::Ok)->click();
  }
  std::string ChooseFile() override {
    Choose(*OpenDialogs<QFileDialog>().front(), "a.sch");
    return Files.Place.path().toStdString() + "/a.sch";
  }
  void CancelFile() override { OpenDialogs<QFileDialog>().front()->reject(); }

  bool Await(const std::function<bool()>& done) override { return marlex::Await(TheLoop, done); }

  Folder Files;

 private:
  QtEventLoop TheLoop;
  EnglishBoxes TheBoxes{TheLoop};
};

class DialogsContract : public testing::TestWithParam<PcKind> {
 protected:
  DialogsContract() {
    if (GetParam() == PcKind::Simulated) {
      Bench = std::make_unique<SimulatedDialogsBench>();
      return;
    }
    auto bench = std::make_unique<RealDialogsBench>();
    Asked = bench->Files.Asked(false);
    Bench = std::move(bench);
  }

  Dialogs& Boxes() { return Bench->Boxes(); }
  void Later(std::function<void()> event) { Bench->Loop().Post(std::move(event)); }

  void Show(const std::string& body, const std::string& caption = "Problem") {
    Boxes().MsgBox(body, BoxIcon::Critical, caption);
  }
  void Leave(const std::string& body, const std::string& caption = "Problem") {
    Boxes().LeaveMsgBox(body, BoxIcon::Information, caption, [this] { Story += "answered "; });
  }
  bool Open(const std::string& name) {
    return Boxes().LeaveOpen(Asked, [this, name](const std::string& result) {
      Story += name + "=" + result + " ";
      Result = result;
    });
  }

  FileDialog Asked;
  std::string Story;
  std::optional<std::string> Result;
  // Goes first: it closes what is still open, which still adds to the story.
  std::unique_ptr<DialogsBench> Bench;
};

INSTANTIATE_TEST_SUITE_P(Pc, DialogsContract, kBothPcs, NameOf);

TEST_P(DialogsContract, AMessageBoxHoldsItsCallerUntilItIsAnswered) {
  Later([this] {
    EXPECT_EQ(Bench->OpenBoxes(), 1);
    Story += "event ";
    Bench->PressOk();
  });
  Show("No paper");
  EXPECT_EQ(Story, "event ");
  EXPECT_EQ(Bench->OpenBoxes(), 0);
}

TEST_P(DialogsContract, TimersGoOnUnderAMessageBox) {
  int ticks = 0;
  const auto timer = Bench->Loop().StartTimer(5, [&] {
    if (++ticks == 3) Bench->PressOk();
  });
  Show("No paper");
  Bench->Loop().StopTimer(timer);
  EXPECT_GE(ticks, 3);
}

TEST_P(DialogsContract, AnInnerMessageBoxEndsBeforeTheOuterOne) {
  Later([this] {
    Later([this] {
      EXPECT_EQ(Bench->OpenBoxes(), 2);
      Bench->PressOk();
    });
    Show("No ink");
    Story += "inner ";
    EXPECT_EQ(Bench->OpenBoxes(), 1);
    Bench->PressOk();
  });
  Show("No paper");
  EXPECT_EQ(Story, "inner ");
  EXPECT_EQ(Bench->OpenBoxes(), 0);
}

TEST_P(DialogsContract, ABoxThatIsLeftOpenHoldsNobodyUp) {
  Leave("No paper");
  EXPECT_EQ(Story, "");
  ASSERT_TRUE(Bench->Await([this] { return Bench->OpenBoxes() == 1; }));
  Bench->PressOk();
  ASSERT_TRUE(Bench->Await([this] { return Bench->OpenBoxes() == 0; }));
  EXPECT_EQ(Story, "answered ");
}

TEST_P(DialogsContract, ABoxThatIsOpenIsNotOpenedASecondTime) {
  Leave("No paper");
  Leave("No paper");
  Show("No paper");  // returns at once
  EXPECT_EQ(Bench->OpenBoxes(), 1);
  Bench->PressOk();
  EXPECT_TRUE(Bench->Await([this] { return Bench->OpenBoxes() == 0; }));
  EXPECT_EQ(Story, "answered ");
  Leave("No paper");
  EXPECT_EQ(Bench->OpenBoxes(), 1) << "it is not open any more";
}

TEST_P(DialogsContract, AMessageBoxThatWaitsIsNotOpenedASecondTime) {
  Later([this] {
    Leave("No paper");
    Show("No paper");  // returns at once
    EXPECT_EQ(Bench->OpenBoxes(), 1);
    Bench->PressOk();
  });
  Show("No paper");
  EXPECT_EQ(Story, "");
}

TEST_P(DialogsContract, AnotherCaptionOrBodyIsAnotherBox) {
  Leave("No paper");
  Leave("No paper", "Note");
  Leave("No ink");
  EXPECT_EQ(Bench->OpenBoxes(), 3);
}

TEST_P(DialogsContract, TheAnswerMayOpenTheSameBoxAgain) {
  Boxes().LeaveMsgBox("No paper", BoxIcon::Information, "Problem", [this] { Leave("No paper"); });
  Bench->PressOk();
  ASSERT_TRUE(Bench->Await([this] { return Bench->OpenBoxes() == 1; }));
  EXPECT_EQ(Story, "");
  Bench->PressOk();
  EXPECT_EQ(Story, "answered ");
}

TEST_P(DialogsContract, AChosenFileComesAsAnEventOfItsOwn) {
  EXPECT_TRUE(Open("file"));
  ASSERT_TRUE(Bench->Await([this] { return Bench->FileDialogIsOpen(); }));
  const std::string path = Bench->ChooseFile();
  ASSERT_TRUE(Bench->Await([this] { return Result.has_value(); }));
  EXPECT_EQ(Story, "file=" + path + " ");
  EXPECT_FALSE(Bench->FileDialogIsOpen());
}

TEST_P(DialogsContract, ACancelledFileDialogGivesNothing) {
  EXPECT_TRUE(Open("file"));
  Bench->CancelFile();
  EXPECT_EQ(Story, "") << "not before the loop delivers it";
  ASSERT_TRUE(Bench->Await([this] { return Result.has_value(); }));
  EXPECT_EQ(Story, "file= ");
}

TEST_P(DialogsContract, ASecondFileDialogIsRefusedWithoutEffect) {
  EXPECT_TRUE(Open("first"));
  EXPECT_FALSE(Open("second"));
  Bench->CancelFile();
  ASSERT_TRUE(Bench->Await([this] { return Result.has_value(); }));
  EXPECT_FALSE(Bench->FileDialogIsOpen());
  EXPECT_TRUE(Open("third"));
  Bench->CancelFile();
  ASSERT_TRUE(Bench->Await([this] { return Story.ends_with("third= "); }));
  EXPECT_EQ(Story, "first= third= ");
}

TEST_P(DialogsContract, WhoeverHearsOfTheChoiceMayOpenTheNextFileDialog) {
  bool next = false;
  Boxes().LeaveOpen(Asked, [&](const std::string&) { next = Open("next"); });
  Bench->CancelFile();
  ASSERT_TRUE(Bench->Await([&] { return next; }));
  EXPECT_TRUE(Bench->FileDialogIsOpen());
  Bench->CancelFile();
  EXPECT_TRUE(Bench->Await([this] { return Result.has_value(); }));
}

TEST_P(DialogsContract, AMessageBoxMayWaitWhileAFileDialogIsOpen) {
  EXPECT_TRUE(Open("file"));
  Later([this] { Bench->PressOk(); });
  Show("No paper");
  EXPECT_TRUE(Bench->FileDialogIsOpen());
  Bench->CancelFile();
  EXPECT_TRUE(Bench->Await([this] { return Result.has_value(); }));
}

}  // namespace
}  // namespace marlex
