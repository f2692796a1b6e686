- (void)draw                                                                                                              　{
}
- (void)hide {
}
