// int first(int a) {
    // int second(int a) {
///int third(int a) {
// int fourth(int a)
{
}
int fifth(int a) { // counts
}
/*
int sixth(int a) {
}
*/
