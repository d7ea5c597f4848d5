#include "dialog/pages/display/objectcolordialog.h"

#include "tests/display/objectspage.h"

#include <QtWidgets/QFileDialog>

using namespace testsupport;

namespace {

class ObjectColors : public ObjectsPage {
protected:
    void SetUp() override {
        load();
        openObjects();
    }

    /// Presses a button of the page and gives its file dialog a name; an empty one cancels it.
    void chooseFile(const char* button, const std::string& name) {
        whenModal([&](QWidget& modal) {
            auto* dialog = dynamic_cast<QFileDialog*>(&modal);
            ASSERT_NE(dialog, nullptr);
            auto* field = dialog->findChild<QLineEdit*>();
            title_ = dialog->windowTitle().toStdString();
            suffix_ = dialog->defaultSuffix().toStdString();
            filters_ = dialog->nameFilters().join(QLatin1Char('|')).toStdString();
            preset_ = field->text().toStdString();
            directoryShown_ = dialog->directory().path().toStdString();
            if (name.empty())
                return dialog->reject();
            field->setText(QString::fromStdString(name));
            QTest::keyClick(field, Qt::Key_Return);
        });
        find<QPushButton>(window_, button)->click();
    }

    TemporaryDirectory directory_;
    const std::string path_ = (directory_ / "mine.ovc").string();
    std::string title_, suffix_, filters_, preset_, directoryShown_;
};

} // namespace

TEST_F(ObjectColors, ASchemeThatWasSavedAndEditedByHandShowsInGridAndPreview) {
    const QColor before = previewAt(0, 0);
    chooseFile("Save Scheme", path_);
    EXPECT_EQ(title_, "Save Schema File");
    EXPECT_EQ(suffix_, "lmc");
    EXPECT_EQ(filters_, "Orvane Color Schema (*.ovc)|All Files (*)");
    EXPECT_EQ(preset_, "");
    EXPECT_EQ(stored("MRU_SCHEMA"), Texts{path_});
    EXPECT_TRUE(contains(readFile(installation_.user() / "orvane.xml"), path_))
        << "the path is kept whatever becomes of the dialog";

    std::string text = readFile(path_);
    const auto edit = [&text](const std::string& from, const std::string& to) {
        ASSERT_TRUE(contains(text, from)) << from << " in\n" << text;
        text.replace(text.find(from), from.size(), to);
    };
    edit(R"(<item name="BACKGROUND" color="0x0"/>)", R"(<item name="BACKGROUND" color="12ab56"/>)");
    edit(R"(<item name="LABEL" text="0xffff00"/>)", R"(<item name="LABEL" text="0xff" color="0x1"/>)");
    edit(R"(<item name="UNPLACED COMPONENT" color="0xc0c0c0"/>)",
         R"(<item name="UNPLACED COMPONENT" color="none"/>)");
    edit(R"(<item name="BUS" color="0xffff00"/>)", "");
    edit(R"(<item name="BLOCK" color="0xfffbf0" text="0x0"/>)",
         R"(<item name="BLOCK" color="0x10" text="0x20"/>)");
    writeFile(path_, text);
    chooseFile("Load Scheme", path_);
    EXPECT_EQ(title_, "Load Schema File");
    EXPECT_EQ(preset_, "mine.ovc") << "the first of the schemes of late";
    EXPECT_EQ(directoryShown_, directory_.path().string());
    EXPECT_EQ(stored("MRU_SCHEMA"), Texts{path_}) << "a load leaves the list";

    EXPECT_NE(before, QColor(0x12, 0xab, 0x56));
    EXPECT_EQ(previewAt(0, 0), QColor(0x12, 0xab, 0x56)) << "before anything is stored";
    EXPECT_EQ(cell("OV", "BACKGROUND_LAYER", Row::kColorColumn), std::to_string(0x56ab12));
    EXPECT_EQ(cell("OV", "LABEL", Row::kTextColumn), std::to_string(0xff0000));
    EXPECT_EQ(cell("OV", "UNPLACEDCOMPONENT_LAYER", Row::kColorColumn), "0") << "no number is black";
    EXPECT_EQ(cell("OV", "BUS", Row::kColorColumn), std::to_string(0x00ffff)) << "no item, no change";
    EXPECT_EQ(cell("ICT", "COMPONENT", Row::kColorColumn), std::to_string(0x100000))
        << "the caption is the name, not the key";
    EXPECT_EQ(stored("BACKGROUND_LAYER").at(0), "0x000000");
    EXPECT_TRUE(objects_->isModified());
    objects_->onApply();
    EXPECT_FALSE(objects_->isModified());
    EXPECT_EQ(stored("BACKGROUND_LAYER").at(0), "0x12ab56");
    EXPECT_EQ(stored("ICTCOMPONENT"), (Texts{"0x000010", "0x000020"}));
}

TEST_F(ObjectColors, EachSaveAddsItsPathAtTheEnd) {
    chooseFile("Save Scheme", path_);
    chooseFile("Save Scheme", (directory_ / "other.ovc").string());
    EXPECT_EQ(preset_, "mine.ovc");
    chooseFile("Save Scheme", (directory_ / "third").string());
    const std::string withSuffix = (directory_ / "third.lmc").string();
    EXPECT_EQ(stored("MRU_SCHEMA"), (Texts{path_, (directory_ / "other.ovc").string(), withSuffix}));
    EXPECT_TRUE(std::filesystem::exists(withSuffix));
}

TEST_F(ObjectColors, ACancelledLoadHasStoredTheEditsAndAMissingFileChangesNothing) {
    chooseColor("OV", "NET", Row::kColorColumn, "#800000");
    EXPECT_EQ(previewAt(75, 25), QColor("#800000")) << "before anything is stored";
    typeWidth("NET", "5");
    std::filesystem::create_directories(installation_.standard());
    chooseFile("Load Scheme", "");
    EXPECT_EQ(directoryShown_, installation_.standard().string());
    EXPECT_EQ(stored("NET"), (Texts{"1", "1", "0x800000", "1", "0", "5"}));
    EXPECT_TRUE(objects_->isModified()) << "no commit has told the host";
    chooseFile("Load Scheme", path_);
    EXPECT_EQ(cell("OV", "NET", Row::kColorColumn), std::to_string(0x80));

    typeWidth("NET", "50");
    EXPECT_EQ(messageDuring([&] { find<QPushButton>(window_, "Load Scheme")->click(); }),
              "Please enter a value between 1 and 10");
    EXPECT_EQ(stored("NET").at(5), "5");
}

TEST_F(ObjectColors, APathWhoseDirectoryIsGoneStaysWholeAndASaveThereFailsAloud) {
    const std::string gone = (directory_ / "gone/mine.ovc").string();
    Orv::setValues(appConfig_, "MRU_SCHEMA", {gone});
    chooseFile("Load Scheme", "");
    EXPECT_EQ(preset_, gone);
    for (const bool isFile : {false, true}) {
        if (isFile)
            writeFile(directory_ / "gone", "no directory");
        std::string message;
        whenModal([&](QWidget& modal) {
            EXPECT_EQ(modal.findChild<QLineEdit*>()->text().toStdString(), gone);
            answerNextMessageBox("OK", &message);
            QTest::keyClick(modal.findChild<QLineEdit*>(), Qt::Key_Return);
        });
        find<QPushButton>(window_, "Save Scheme")->click();
        EXPECT_TRUE(contains(message, (directory_ / "gone").string()));
        EXPECT_EQ(stored("MRU_SCHEMA"), Texts{gone}) << "what was not saved is not remembered";
    }
}

TEST_F(ObjectColors, ADamagedSchemeIsToldAndChangesNothing) {
    writeFile(path_, "<Schema_file><schema><schematic><item name=\"BACKGROUND\" color=\"0xff\"/>");
    std::string message;
    whenModal([&](QWidget& modal) {
        auto& dialog = dynamic_cast<QFileDialog&>(modal);
        dialog.findChild<QLineEdit*>()->setText(QString::fromStdString(path_));
        answerNextMessageBox("OK", &message);
        QTest::keyClick(dialog.findChild<QLineEdit*>(), Qt::Key_Return);
    });
    find<QPushButton>(window_, "Load Scheme")->click();
    EXPECT_EQ(message.rfind(path_ + ": line 1: ", 0), 0u) << message;
    EXPECT_EQ(cell("OV", "BACKGROUND_LAYER", Row::kColorColumn), "0");
}

TEST_F(ObjectColors, TheRadioButtonsChooseGridAndPreview) {
    EXPECT_TRUE(grid("OV").isVisible() && !grid("ICT").isVisible());
    grid("ICT").rowOfKey("INVALIDCELL")->setColor(0x0000ff);
    find<QAbstractButton>(window_, "ICT")->click();
    EXPECT_TRUE(!grid("OV").isVisible() && grid("ICT").isVisible());
    EXPECT_EQ(previewAt(0, 0), QColor(Qt::red));
    find<QAbstractButton>(window_, "Schematic")->click();
    EXPECT_TRUE(grid("OV").isVisible() && !grid("ICT").isVisible());
    EXPECT_EQ(previewAt(0, 0), QColor(Qt::black));
}
