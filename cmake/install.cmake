# Filled by the packaging work: headers, both tiers, orbs.pc and the CMake package.
