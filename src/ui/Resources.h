#pragma once

/// Makes the program's icons known under ":/kestrum/". They lie in a static library, from which the linker
/// would otherwise drop them. Call it before the first form is built; more calls do no harm.
void initialiseResources();
