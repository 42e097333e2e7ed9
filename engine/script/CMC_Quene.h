#pragma once

// FIFO and LIFO: values that wait, each a copy that the queue owns. Owned by their scope.

#include "core/Queues.h"
#include "script/CMC_Variable.h"

#include <memory>

class CMC_Quene : public CMC_Object {
public:
    static const char * const kSignals[4];
    static constexpr SignalList kKeys{};

    ~CMC_Quene() override;

    SignalList getBehavioursList() override { return kSignals; }
    CMC_Runner * getRunner() override;

    void push(CMC_Variable * value);
    // The next value as a pool value. Of an empty queue: raises ONEMPTY and gives the STRING "NULL".
    CMC_Variable * pop();
    int getSize() const { return queue_->size; }
    bool isEmpty() const { return getSize() == 0; }

protected:
    CMC_Quene(CMC_ObjectsContainer * scope, CMElement * element, int type, std::unique_ptr<CXQuene> queue);

private:
    std::unique_ptr<CXQuene> queue_; // its values are owned here
};

// First in, first out.
class CMC_Fifo : public CMC_Quene {
public:
    CMC_Fifo(CMC_ObjectsContainer * scope, CMElement * element)
        : CMC_Quene(scope, element, types::kFifo, std::make_unique<CXFifoQuene>()) {}
};

// Last in, first out.
class CMC_Lifo : public CMC_Quene {
public:
    CMC_Lifo(CMC_ObjectsContainer * scope, CMElement * element)
        : CMC_Quene(scope, element, types::kLifo, std::make_unique<CXLifoQuene>()) {}
};
