#include "store/resolutions.h"

#include <vector>

namespace Orv {

namespace {

using Metrics::RConvert;
using Metrics::Resolution;

struct Resolutions {
    Resolution session = Resolution::low;
    Resolution config = Resolution::high;
    Resolution exchange = Resolution::high;
    Resolution legacy = Resolution::low;
    std::vector<Resolution> stack;
};

// Made at first use: the start-up object may set the session resolution before this file's globals would
// exist.
Resolutions& inForce() {
    static Resolutions resolutions;
    return resolutions;
}

} // namespace

void setSessionResolution(Resolution resolution) {
    inForce().session = resolution;
}

Resolution sessionResolution() {
    return inForce().session;
}

void setConfigResolution(Resolution resolution) {
    inForce().config = resolution;
}

Resolution configResolution() {
    return inForce().config;
}

void setExchangeResolution(Resolution resolution) {
    inForce().exchange = resolution;
}

Resolution exchangeResolution() {
    return inForce().exchange;
}

Resolution legacyResolution() {
    return inForce().legacy;
}

long configToSession(long value) {
    return RConvert(value, configResolution()).To(sessionResolution());
}

long sessionToConfig(long value) {
    return RConvert(value, sessionResolution()).To(configResolution());
}

long exchangeToSession(long value) {
    return RConvert(value, exchangeResolution()).To(sessionResolution());
}

long sessionToExchange(long value) {
    return RConvert(value, sessionResolution()).To(exchangeResolution());
}

long legacyToSession(long value) {
    return RConvert(value, legacyResolution()).To(sessionResolution());
}

void pushResolution(Resolution resolution) {
    inForce().stack.push_back(resolution);
}

void popResolution() {
    if (!inForce().stack.empty())
        inForce().stack.pop_back();
}

Resolution topResolution() {
    return inForce().stack.empty() ? sessionResolution() : inForce().stack.back();
}

long topToSession(long value) {
    return RConvert(value, topResolution()).To(sessionResolution());
}

} // namespace Orv
