#include "exchange/VrexUrdfReader.h"

int main() {
    const auto robot = VrexUrdfReader().readText("<robot name='r'><link name='base'/></robot>");
    const auto refused = VrexUrdfReader().readText("<robot name='r'/>", "closed_loop: []");
    return robot.system.has_value() && robot.findings.empty() && !refused.system.has_value() ? 0 : 1;
}
