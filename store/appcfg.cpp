#include "store/appcfg.h"

#include "orv/appconfiguration.h"

#include <cassert>
#include <string>
#include <vector>

namespace Orv {

using Property = iAppConfiguration::Property;

void getValue(const iAppConfiguration& appConfig, const std::string& key, std::string& value,
              bool& readonly) {
    Property prop(key);
    value.clear();
    if (!appConfig.getProperty(prop) || prop.values.empty())
        return;
    value = prop.values.front();
    readonly = prop.readonly.front() != 0;
}

void getValue(const iAppConfiguration& appConfig, const std::string& key, std::string& value) {
    bool ignored = false;
    getValue(appConfig, key, value, ignored);
}

void getValues(const iAppConfiguration& appConfig, const std::string& key, std::vector<std::string>& values,
               std::vector<bool>& readonly) {
    Property prop(key);
    if (!appConfig.getProperty(prop))
        return;
    assert(prop.values.size() == prop.readonly.size());
    for (std::size_t i = 0; i < prop.values.size(); ++i) {
        values.push_back(prop.values[i]);
        readonly.push_back(prop.readonly[i] != 0);
    }
}

void getValues(const iAppConfiguration& appConfig, const std::string& key, std::vector<std::string>& values) {
    std::vector<bool> ignored;
    getValues(appConfig, key, values, ignored);
}

void setValue(iAppConfiguration& appConfig, const std::string& key, const std::string& value) {
    // The read brings the text of a number up to date, which counts where a lock keeps it.
    Property prop(key);
    if (!appConfig.getProperty(prop))
        return;
    prop.values = {value};
    appConfig.setProperty(prop);
}

void setValueAt(iAppConfiguration& appConfig, std::size_t index, const std::string& key,
                const std::string& value) {
    Property prop(key);
    if (!appConfig.getProperty(prop) || index >= prop.values.size())
        return;
    prop.values[index] = value;
    appConfig.setProperty(prop);
}

void setValues(iAppConfiguration& appConfig, const std::string& key, const std::vector<std::string>& values) {
    Property prop(key);
    prop.values = values;
    appConfig.setProperty(prop);
}

} // namespace Orv
