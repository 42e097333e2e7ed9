#pragma once

// One runner for each script type, made before anything is loaded.

class CMC_Object;
class CMC_Runner;

class CMC_RunnerFactory {
public:
    static void initialize();
    static void done();
    // By type id; 0 gives the runner of the statements. Null for a type whose objects bring their own.
    static CMC_Runner * getRunner(int type);
    static CMC_Runner * runnerOf(CMC_Object * object); // its type's, or its own
};
