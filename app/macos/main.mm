#import <AppKit/AppKit.h>

// AppKit runs the application; the application delegate comes to life as it starts launching
// (see VornixAppDelegate).
int main(int argc, const char* argv[]) {
    NSApplicationMain(argc, argv);
    return 0;
}
