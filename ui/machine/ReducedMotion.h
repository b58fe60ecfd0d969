// The desktop's wish that little should move on its screen.
#pragma once
#include <functional>

class QObject;

// Asks the desktop's settings once, over the session's bus, and calls wished when they ask for less
// motion or for none. The answer may come at any later time and nothing waits for it; where there
// is no bus, no portal or no such setting there is none. Nothing is called once the context is
// gone.
void AskForReducedMotion(QObject* context, std::function<void()> wished);
