// Prints the colour of nets as the user has chosen it, and the grid's step.

#include <orv/appconfiguration.h>

#include <cstdio>

int main() {
    Orv::iAppConfiguration configuration;
    if (!configuration.load())
        return 1; // RSR_HOME and WDIR do not say where the settings are
    Orv::Graphics wire;
    configuration.getGraphics(configuration.handleOf("WIRE"), wire);
    std::printf("nets 0x%06x, grid %.0f x 10 nm\n", static_cast<unsigned>(wire.colour),
                static_cast<double>(configuration.getNumber("GRID_HR")));
}
