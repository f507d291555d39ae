// The limit of a command: what it costs to start a process.
int main() {}
