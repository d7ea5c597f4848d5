#pragma once

#include "dialog/widgets/listboxeditor.h"

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtWidgets/QComboBox>

#include <functional>
#include <string>
#include <vector>

namespace ovsettings {

/// A list of partitions that a design sees. A line is edited in a drop-down list of the partitions that are
/// not in the list yet.
class CTopLevelList : public ListBoxEditor {
    Q_OBJECT

public:
    using ListBoxEditor::ListBoxEditor;

    /// The drop-down list that opens over a line while it is edited.
    class CComboBoxEx : public QComboBox {
    public:
        using QComboBox::QComboBox;
    };

    /// @param allPartitions gives whatever can be in the list, when a line is edited.
    void setSource(std::function<std::vector<std::string>()> allPartitions) {
        allPartitions_ = std::move(allPartitions);
    }

Q_SIGNALS:
    /// The user has changed the list.
    void changed();

protected:
    void newLine() override;
    QWidget* createLineEditor(QWidget* parent, int row) override;
    void lineAdded(int row, const QString& text) override;
    void lineRenamed(int row, const QString& text) override;
    void lineDeleted(int row) override;
    void lineMoved(int from, int to) override;

private:
    void keepOrigin(int row, const QString& text);

    std::function<std::vector<std::string>()> allPartitions_;
    QHash<QString, QByteArray> origins_; ///< of the offered names whose text does not say their bytes
};

} // namespace ovsettings
