// The kit's accessible interfaces; see kitaccessible.h.
#include "ui/kitaccessible.h"

#include "ui/boxcontrol.h"

#include <QAccessibleWidget>
#include <QDialog>
#include <QMenu>

namespace {

// A window or plain container whose accessible children are the child widgets that show
// (or will show with it), in the order of the widget's children.
class ShownChildrenAccessible : public QAccessibleWidget {
public:
    explicit ShownChildrenAccessible(QWidget* widget)
        : QAccessibleWidget(widget, roleOf(widget)) {}

    int childCount() const override { return int(shownChildren().size()); }

    QAccessibleInterface* child(int index) const override {
        const QList<QWidget*> children = shownChildren();
        if (index < 0 || index >= children.size())
            return nullptr;
        return QAccessible::queryAccessibleInterface(children[index]);
    }

    int indexOfChild(const QAccessibleInterface* child) const override {
        if (!child || !child->object())
            return -1;
        return int(shownChildren().indexOf(qobject_cast<QWidget*>(child->object())));
    }

private:
    static QAccessible::Role roleOf(const QWidget* widget) {
        if (!widget->isWindow())
            return QAccessible::Client;
        return qobject_cast<const QDialog*>(widget) ? QAccessible::Dialog : QAccessible::Window;
    }

    QList<QWidget*> shownChildren() const {
        QList<QWidget*> shown;
        for (QObject* object : widget()->children()) {
            auto* child = qobject_cast<QWidget*>(object);
            // Windows and menus are no part of their parent's tree, as Qt has it.
            if (child && !child->isWindow() && !qobject_cast<QMenu*>(child) &&
                child->isVisibleTo(widget()))
                shown.append(child);
        }
        return shown;
    }
};

class BoxControlAccessible : public QAccessibleWidget {
public:
    explicit BoxControlAccessible(BoxControl* button)
        : QAccessibleWidget(button, QAccessible::Button) {}

    QString text(QAccessible::Text t) const override {
        const QString given = QAccessibleWidget::text(t);
        if (t == QAccessible::Name && given.isEmpty())
            return static_cast<const BoxControl*>(widget())->Caption();
        return given;
    }
};

QAccessibleInterface* kitFactory(const QString& className, QObject* object) {
    if (!object || !object->isWidgetType())
        return nullptr;
    auto* widget = static_cast<QWidget*>(object);
    if (className == QLatin1String("BoxControl"))
        return new BoxControlAccessible(static_cast<BoxControl*>(widget));
    // Reached only by classes that nothing more specific describes.
    if (className == QLatin1String("QWidget") || className == QLatin1String("QDialog"))
        return new ShownChildrenAccessible(widget);
    return nullptr;
}

} // namespace

void installKitAccessibility() {
    // Once per process: a function-local static is initialised on the first call only.
    [[maybe_unused]] static const bool installed = (QAccessible::installFactory(kitFactory), true);
}
