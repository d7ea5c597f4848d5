#include "app/dialog/module.h"

#include "app/dialog/dialog.h"

extern "C" __attribute__((visibility("default"))) int orvaneOpenDialog(const app::Options& options,
                                                                       app::Arguments arguments) {
    return app::runDialog(options, arguments);
}

extern "C" __attribute__((visibility("default"))) int orvaneTour(const app::Options& options,
                                                                 app::Arguments arguments) {
    return app::runTour(options, arguments);
}
