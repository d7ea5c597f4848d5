#include "tests/host/hostdialog.h"

#include "ovsettings/showsettingsdialog.h"

#include <QtWidgets/QScrollArea>

HostDialog::HostDialog() {
    recorder() = Recorder();
    EXPECT_TRUE(configuration_.load());
}

std::string HostDialog::category(const std::string& name, const std::string& key, const std::string& inner) {
    return testsupport::Installation::category(name, key, RECORDING_ADDIN, inner);
}

int HostDialog::run(Orv::IUpdater* updater, const std::function<void(QDialog&)>& script) {
    testsupport::whenDialog(script, &boxes_);
    return ovsettings::showSettingsDialog(configuration_, project_, updater);
}

std::string HostDialog::stored(const char* key) {
    Orv::iAppConfiguration fresh;
    Orv::iAppConfiguration::Property property(key);
    if (!fresh.load() || !fresh.getProperty(property) || property.values.empty())
        return "(none)";
    return property.values.front();
}

namespace {

std::string itemText(const QTreeWidgetItem& item) {
    std::string text = item.text(0).toStdString();
    for (int i = 0; i < item.childCount(); ++i)
        text += (i ? "," : "(") + itemText(*item.child(i));
    return item.childCount() ? text + ")" : text;
}

} // namespace

std::string treeText(QDialog& dialog) {
    auto* tree = dialog.findChild<QTreeWidget*>();
    std::string text;
    for (int i = 0; i < tree->topLevelItemCount(); ++i)
        text += (i ? "," : "") + itemText(*tree->topLevelItem(i));
    return text;
}

std::string selectedCategory(QDialog& dialog) {
    const auto selected = dialog.findChild<QTreeWidget*>()->selectedItems();
    return selected.empty() ? std::string() : selected.front()->text(0).toStdString();
}

std::string pageCaption(QDialog& dialog) {
    return dialog.findChild<QLabel*>(QStringLiteral("caption"))->accessibleName().toStdString();
}

std::vector<std::string> textsOnShow(QDialog& dialog) {
    std::vector<std::string> texts;
    for (const QLineEdit* edit : dialog.findChild<QScrollArea*>()->findChildren<QLineEdit*>()) {
        if (edit->isVisible())
            texts.push_back(edit->text().toStdString());
    }
    return texts;
}
