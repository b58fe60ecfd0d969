#include "app/CMorvikApp.h"

int main(int argc, char** argv) {
    CMorvikApp app(argc, argv);
    return app.Run();
}
