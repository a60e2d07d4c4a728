#include "DemoScripts.h"

#include "HospitalGenerator.h"

using namespace Qt::StringLiterals;

namespace Generator {

std::vector<DemoScript> DemoScripts(const HospitalSize& size) {
    std::vector<DemoScript> scripts;
    GenerateHospital(size, [&scripts](const QString& script, const QString& statement) {
        if (scripts.empty() || scripts.back().name != script)
            scripts.push_back(
                {script, u"-- Written by generate-hospital; change hospital/generator instead.\n\n"_s});
        scripts.back().text += statement + "\nGO\n\n"_L1;
    });
    return scripts;
}

} // namespace Generator
