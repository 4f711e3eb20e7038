// Stands for the header of a library of the framework's extension kind, which has nothing that a source
// names.
