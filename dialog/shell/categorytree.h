#pragma once

#include <QtWidgets/QTreeWidget>

#include <functional>

namespace ovsettings {

/// The tree of categories. It asks before its current item changes, by mouse, by key or by code; a refusal
/// leaves current item and selection as they were.
class CategoryTree : public QTreeWidget {
    Q_OBJECT

public:
    using LeaveCheck = std::function<bool(QTreeWidgetItem* from, QTreeWidgetItem* to)>;

    explicit CategoryTree(QWidget* parent = nullptr);

    void setLeaveCheck(LeaveCheck check);

protected:
    void mouseMoveEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    class GuardedSelection;

    LeaveCheck leaveCheck_;
};

} // namespace ovsettings
