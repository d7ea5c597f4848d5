#include "app/dialogmodule.h"

#include "app/dialog/dialog.h"
#include "platform/printable.h"

#include <QtCore/QLoggingCategory>

namespace {

// The toolkit quotes names of files. That the platform without a screen cannot size a window by hints, which
// it says at each, nobody needs to know.
void tellOfToolkit(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (!text.startsWith(QLatin1String("This plugin does not support")))
        platform::tell(qFormatLogMessage(type, context, text).toStdString());
}

} // namespace

extern "C" __attribute__((visibility("default"))) int orvaneOpenDialog(const app::Options& options,
                                                                       app::Arguments arguments) {
    qInstallMessageHandler(tellOfToolkit);
    return app::runDialog(options, arguments);
}

extern "C" __attribute__((visibility("default"))) int orvaneTour(const app::Options& options,
                                                                 app::Arguments arguments) {
    qInstallMessageHandler(tellOfToolkit);
    return app::runTour(options, arguments);
}
